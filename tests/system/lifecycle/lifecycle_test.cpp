// How many restarts: TVO_RESTARTS. How long the idle application is watched: TVO_IDLE_SECONDS.

#include <algorithm>
#include <csignal>
#include <fstream>
#include <functional>
#include <iostream>
#include <set>
#include <thread>

#include <linux/input-event-codes.h>

#include <support/process_figures.h>

#include "approval_fixture.h"

namespace {

using namespace std::chrono_literals;
using app_manager::control::Command;
using app_manager::control::EndKind;
using app_manager::control::State;
using Status = app_manager::control::ApplicationStatus;
using Clock = std::chrono::steady_clock;

constexpr auto Application = support::TerminalSession::Application;

class Lifecycle : public ApprovalFixture
{
protected:
    Lifecycle()
        : ApprovalFixture({.application = "needs = [\"settings\"]\n"
                                          "commands = [\"show\", \"hide\", \"close\"]\n"
                                          "ping_limit = 3.0\n"})
    {}

    void ExpectServed(const std::string& name)
    {
        const Caller caller = AskAndWait(name);
        display.PressKey(KEY_ENTER);
        EXPECT_EQ(caller->ExitStatus(), 0) << caller->Errors();
    }

    static void ExpectFailure(support::Process& caller)
    {
        EXPECT_EQ(caller.ExitStatus(), 4);
        EXPECT_EQ(caller.Output(), "");
        EXPECT_THAT(caller.Errors(), testing::MatchesRegex("cert_approve: [^\n]+\n"));
    }

    void ExpectLastEnd(EndKind kind, bool bySignal, int status)
    {
        const auto end = manager.StatusOf(Application).lastEnd;
        ASSERT_TRUE(end);
        EXPECT_EQ(end->kind, kind) << end->cause;
        EXPECT_EQ(end->bySignal, bySignal) << end->cause;
        EXPECT_EQ(end->status, status) << end->cause;
    }

    support::ManagerProcess& manager = terminal.Manager();
    const pid_t first = terminal.Approver();
};

TEST_F(Lifecycle, TheApplicationPingsOnceASecond)
{
    const auto status =
        manager.WaitFor(Application, [](const Status& now) { return now.lastPing.has_value(); });
    EXPECT_EQ(status.state, State::Ready);
    EXPECT_EQ(status.restarts, 0U);
    EXPECT_TRUE(status.readySince);
    EXPECT_LT(status.lastPing->age, 2s);
    const auto next = manager.WaitFor(
        Application,
        [&](const Status& now) { return now.lastPing->when > status.lastPing->when + 100ms; });
    EXPECT_LT(next.lastPing->when - status.lastPing->when, 2s);
}

TEST_F(Lifecycle, ShowingAndHidingDoNotTouchTheVerdict)
{
    manager.Send(Application, Command::Show);
    EXPECT_TRUE(
        display.WaitForScreen([](const QImage& screen) { return screen.pixel(0, 0) == Veil; }));
    manager.Send(Application, Command::Hide);
    EXPECT_TRUE(display.WaitForNoToplevel());
    const auto caller = AskAndWait("server.example");
    manager.Send(Application, Command::Hide);
    EXPECT_TRUE(display.WaitForNoToplevel());
    manager.Send(Application, Command::Show);
    EXPECT_TRUE(DialogShows("CN=server.example"));
    EXPECT_TRUE(caller->Runs());
    display.PressKey(KEY_ENTER);
    EXPECT_EQ(caller->ExitStatus(), 0);
}

TEST_F(Lifecycle, ClosingReleasesAllCallers)
{
    const auto shown = AskAndWait("shown.example");
    std::vector<Caller> waiting;
    for (const char* name : {"second.example", "third.example", "fourth.example"})
    {
        waiting.push_back(AskBehind(name));
    }
    manager.Send(Application, Command::Close);
    EXPECT_EQ(shown->ExitStatus(), 1);
    EXPECT_EQ(shown->Output(), "close\n");
    // Those that are taken up before the service ends are refused: one by the window that closes,
    // one by the dispatcher's guard.
    const auto isRefused = [](const Caller& caller)
    {
        return caller->ExitStatus() == 1;
    };
    const auto end = std::partition(waiting.begin(), waiting.end(), std::not_fn(isRefused));
    EXPECT_GE(end - waiting.begin(), 1);
    std::for_each(waiting.begin(), end, [](const Caller& caller) { ExpectFailure(*caller); });
    manager.WaitFor(Application, [](const Status& now) { return now.state == State::Closed; });
    ExpectLastEnd(EndKind::Asked, false, 0);
    EXPECT_NE(manager.Log().find("is about to exit"), std::string::npos) << "not reported";
    terminal.RestartApprover();
    ExpectServed("last.example");
}

TEST_F(Lifecycle, AKilledApplicationIsReplacedAndItsCallersHearAtOnce)
{
    const auto shown = AskAndWait("shown.example");
    const auto waiting = AskBehind("waiting.example");
    const auto start = Clock::now();
    kill(first, SIGKILL);
    ExpectFailure(*shown);
    ExpectFailure(*waiting);
    EXPECT_LT(Clock::now() - start, 2s);
    terminal.WaitForNextApprover(first);
    ExpectLastEnd(EndKind::Crash, true, SIGKILL);
    ExpectServed("next.example");
}

TEST_F(Lifecycle, AHungApplicationIsAbortedAndReplaced)
{
    kill(first, SIGSTOP);
    terminal.WaitForNextApprover(first);
    ExpectLastEnd(EndKind::Hang, true, SIGABRT);
    EXPECT_EQ(manager.StatusOf(Application).restarts, 1U);
    ExpectServed("next.example");
}

TEST_F(Lifecycle, TheApplicationIsClosedWithTheServiceThatItNeeds)
{
    const auto caller = AskAndWait("shown.example");
    const auto service = static_cast<pid_t>(manager.StatusOf("settings").pid);
    kill(service, SIGKILL);
    EXPECT_EQ(caller->ExitStatus(), 1);
    EXPECT_EQ(caller->Output(), "close\n");
    terminal.WaitForNextApprover(first);
    ExpectLastEnd(EndKind::Asked, false, 0);
    EXPECT_NE(static_cast<pid_t>(manager.StatusOf("settings").pid), service);
    ExpectServed("next.example");
}

TEST_F(Lifecycle, AnIdleApplicationHardlyWakes)
{
    // Two of the dispatcher, one each of the connections, the watchdog's tick and its worker, one
    // in two seconds of the settings; and the worker waits for the answer to its ping.
    constexpr std::uint64_t MostASecond = 6 + 1;
    const std::chrono::seconds length(support::FromEnvironment("TVO_IDLE_SECONDS", 10));
    const auto most = MostASecond * static_cast<std::uint64_t>(length.count());
    ExpectServed("server.example");
    EXPECT_TRUE(display.WaitForNoToplevel());
    std::uint64_t waits = most + 1;
    // On a busy machine a thread may have to wait for a lock as well.
    for (int window = 0; window < 3 && waits > most; ++window)
    {
        const auto before = support::ReadFigures(first);
        std::this_thread::sleep_for(length);
        const auto after = support::ReadFigures(first);
        const auto time = after.Time() - before.Time();
        waits = after.Waits() - before.Waits();
        std::cout << waits << " wake-ups, " << time / 1us << " us in " << length.count() << " s\n";
        EXPECT_LT(time, std::chrono::milliseconds(length) / 500);
    }
    EXPECT_LE(waits, most);
}

/// What a manager has: its descriptors, its children, and what is in the rendezvous.
struct Possessions
{
    explicit Possessions(pid_t manager) : descriptors(support::ReadFigures(manager).descriptors)
    {
        const auto id = std::to_string(manager);
        std::ifstream file("/proc/" + id + "/task/" + id + "/children");
        children = std::distance(std::istream_iterator<pid_t>(file), {});
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(support::RuntimeFolder()))
        {
            files.insert(entry.path());
        }
    }

    bool operator==(const Possessions&) const = default;

    std::size_t descriptors;
    std::ptrdiff_t children = 0;
    std::set<std::filesystem::path> files;
};

TEST_F(Lifecycle, RestartsLeaveNothingBehind)
{
    const Possessions before(manager.Program().Id());
    EXPECT_EQ(before.children, 2);
    const std::uint32_t count = support::FromEnvironment("TVO_RESTARTS", 20);
    for (std::uint32_t i = 0; i < count; ++i)
    {
        const pid_t former = terminal.Approver();
        i % 2 == 0 ? manager.Send(Application, Command::Restart)
                   : static_cast<void>(kill(former, i % 4 == 1 ? SIGKILL : SIGTERM));
        terminal.WaitForNextApprover(former);
    }
    EXPECT_EQ(manager.StatusOf(Application).restarts, count);
    EXPECT_TRUE(support::Comes([&] { return Possessions(manager.Program().Id()) == before; }))
        << support::ReadFigures(manager.Program().Id()) << ", before " << before.descriptors;
    ExpectServed("last.example");
}

TEST(ApplicationWithoutItsManager, EndsWithinTwoPings)
{
    const QTemporaryDir temporary;
    const std::filesystem::path folder = temporary.path().toStdString();
    const support::Compositor display(folder / "wayland", {1280, 800});
    support::ManagerProcess manager(folder, "en-US");
    support::Process application({TVO_CERT_APPROVER, {}, support::TerminalEnvironment(folder), {}});
    ASSERT_TRUE(application.WaitForText("CertApprover is ready")) << application.Errors();
    manager.Program().Kill();
    const auto start = Clock::now();
    EXPECT_EQ(application.ExitStatus(), -1);
    EXPECT_LT(Clock::now() - start, 2s);
}

}  // namespace
