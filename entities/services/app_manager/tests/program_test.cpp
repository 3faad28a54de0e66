// The program as it is installed, with real processes below it: what else happens to them, the
// tests of the whole terminal show.

#include <csignal>
#include <fstream>

#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <component/app_manager/create_application_manager.h>
#include <component/app_manager/tvo_ipc/control_client.h>
#include <component/plk/result_codes.h>

namespace app_manager::service {
namespace {

constexpr char Configuration[] = R"(
[[service]]
name = "settings"
command = ["settings_manager", "--memory", "--server", "vx.settings_manager.MSmgr"]
provides = "vx.settings_manager.MSmgr"
)";

constexpr char OneMore[] = R"([[application]]
name = "app"
command = [")" FAKE_APPLICATION R"("]
needs = ["settings"]
commands = ["hide", "close"]
)";

TEST(Program, TakesUpWhatIsAddedObeysAndEndsInOrder)
{
    const std::string file = std::string(std::getenv("TVO_RUNTIME_DIR")) + "/terminal.toml";
    std::ofstream(file) << Configuration;
    std::string config = "--config=" + file;
    char program[] = APP_MANAGER_PROGRAM;
    char* const argv[] = {program, config.data(), nullptr};
    pid_t manager = 0;
    ASSERT_EQ(::posix_spawn(&manager, program, nullptr, nullptr, argv, environ), 0);
    const auto client = control::ConnectControl(std::chrono::seconds(10));
    while (client->Status("settings").state != control::State::Ready)
    {}
    const auto pid = static_cast<pid_t>(client->Status("settings").pid);
    std::ofstream(file, std::ios::app) << OneMore;
    ::kill(manager, SIGHUP);
    while (client->List().size() != 2 || !client->Status("app").lastEnd)
    {}
    EXPECT_EQ(client->Status("app").lastEnd->status, 1);
    EXPECT_EQ(client->Status("app").lastError->error, "no window");
    EXPECT_EQ(client->Status("settings").pid, static_cast<std::uint32_t>(pid));
    EXPECT_THAT([&] { client->Send("app", control::Command::Show); },
                testing::Throws<control::Refusal>(
                    testing::Property(&control::Refusal::Code, control::refusals::NotAllowed)));
    EXPECT_EQ(CreateApplicationManager("app")->GetApplicationWatchdog()->Ping("app"),
              plk::codes::AccessDenied);
    ::kill(manager, SIGTERM);
    int end = -1;
    ::waitpid(manager, &end, 0);
    EXPECT_EQ(end, 0);
    EXPECT_EQ(::kill(pid, 0), -1);
}

}  // namespace
}  // namespace app_manager::service
