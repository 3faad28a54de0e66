// The program as it is installed, with real processes below it.

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

using control::EndKind;
using control::State;
using std::chrono::seconds;

constexpr char Configuration[] = R"(
[[service]]
name = "settings"
command = ["settings_manager", "--memory", "--server", "vx.settings_manager.MSmgr"]
provides = "vx.settings_manager.MSmgr"
restart_delay = 0.01
[[application]]
name = "app"
command = [")" FAKE_APPLICATION R"("]
needs = ["settings"]
commands = ["hide", "close"]
ping_limit = 1
restart_delay = 0.01
)";

constexpr char OneMore[] = R"([[application]]
name = "other"
command = [")" FAKE_APPLICATION R"(", "broken"]
)";

pid_t StartManager(const std::string& file)
{
    std::string config = "--config=" + file;
    char program[] = APP_MANAGER_PROGRAM;
    char* const argv[] = {program, config.data(), nullptr};
    pid_t pid = 0;
    EXPECT_EQ(::posix_spawn(&pid, program, nullptr, nullptr, argv, environ), 0);
    return pid;
}

TEST(Program, KeepsATerminalUpWhateverHappensToItsPrograms)
{
    const std::string file = std::string(std::getenv("TVO_RUNTIME_DIR")) + "/terminal.toml";
    std::ofstream(file) << Configuration;
    const pid_t manager = StartManager(file);
    const auto client = control::ConnectControl(seconds(10));
    control::ApplicationStatus status;
    const auto expectReadyAfter = [&](std::uint32_t restarts)
    {
        const auto limit = std::chrono::steady_clock::now() + seconds(20);
        do
        {
            status = client->Status("app");
        } while ((status.state != State::Ready || status.restarts != restarts) &&
                 std::chrono::steady_clock::now() < limit);
        EXPECT_EQ(status.state, State::Ready);
        EXPECT_EQ(status.restarts, restarts);
    };
    expectReadyAfter(0);
    ::kill(static_cast<pid_t>(status.pid), SIGKILL);
    expectReadyAfter(1);
    EXPECT_EQ(status.lastEnd->kind, EndKind::Crash);
    ::kill(static_cast<pid_t>(status.pid), SIGSTOP);
    expectReadyAfter(2);
    EXPECT_EQ(status.lastEnd->kind, EndKind::Hang);
    EXPECT_EQ(status.lastEnd->status, SIGABRT);
    ::kill(static_cast<pid_t>(client->Status("settings").pid), SIGKILL);
    expectReadyAfter(3);
    EXPECT_EQ(status.lastEnd->kind, EndKind::Asked);
    EXPECT_FALSE(status.lastEnd->bySignal);
    client->Send("app", control::Command::Hide);
    while (client->Status("app").reportedState != 12)
    {}
    EXPECT_THROW(client->Send("app", control::Command::Show), control::Refusal);
    EXPECT_EQ(CreateApplicationManager("app")->GetApplicationWatchdog()->Ping("app"),
              plk::codes::AccessDenied);
    std::ofstream(file, std::ios::app) << OneMore;
    ::kill(manager, SIGHUP);
    while (client->List().size() != 3 || !client->Status("other").lastEnd)
    {}
    EXPECT_EQ(client->Status("other").lastError->error, "no window");
    EXPECT_EQ(client->Status("app").pid, status.pid);
    ::kill(manager, SIGTERM);
    int end = -1;
    ::waitpid(manager, &end, 0);
    EXPECT_EQ(end, 0);
    EXPECT_EQ(::kill(static_cast<pid_t>(status.pid), 0), -1);
}

}  // namespace
}  // namespace app_manager::service
