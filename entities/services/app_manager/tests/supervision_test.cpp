#include <csignal>
#include <sstream>

#include "simulated_terminal.h"

namespace app_manager::service {
namespace {

using control::EndKind;
using control::State;
using Afterwards = SupervisedChild::Afterwards;

class Supervision : public SimulatedTerminal
{
protected:
    Supervision()
    {
        Configure({Application("app")});
    }

    /// @param script  words "MOMENT:WHAT", an end as "exit" or "sig9"
    void Play(const std::string& script)
    {
        std::istringstream words(script);
        long moment = 0;
        char colon = 0;
        for (std::string what; words >> moment >> colon >> what;)
        {
            loop.PassTo(milliseconds(moment));
            Do(what);
            terminal.Settle();
        }
    }

    void Do(const std::string& what)
    {
        if (what == "exit" || what.starts_with("sig"))
        {
            loop.End("app", {what == "exit", what == "exit" ? 0 : std::stoi(what.substr(3))});
        }
        using Deed = void (*)(SupervisedChild&, const Instant&);
        // clang-format off
        static const std::map<std::string, Deed> Deeds = {
            {"ready", [](auto& app, const auto& now) { app.OnReady(now); }},
            {"ping", [](auto& app, const auto& now) { app.OnPing(now); }},
            {"error", [](auto& app, const auto& now) { app.OnInternalError(now, "error", "text"); }},
            {"bye", [](auto& app, const auto& now) { app.OnStateChanged(now, -2); }},
            {"stop", [](auto& app, const auto& now) { app.Stop(now, Afterwards::StayAway, ""); }},
            {"kill", [](auto& app, const auto&) { app.Kill("at once"); }},
            {"restart", [](auto& app, const auto& now) { app.Stop(now, Afterwards::AtOnce, ""); }},
            {"start", [](auto& app, const auto& now) { app.Start(now); }},
        };
        // clang-format on
        if (const auto deed = Deeds.find(what); deed != Deeds.end())
        {
            deed->second(Of("app"), terminal.Now());
        }
    }
};

struct Row
{
    const char* what;
    const char* script;
    const char* done;  ///< after a start at 0
    State state;
    EndKind end;
};

class SupervisionTable : public Supervision, public testing::WithParamInterface<Row>
{};

TEST_P(SupervisionTable, StartsWatchesAndEndsByTheLimits)
{
    EXPECT_EQ(loop.Done(), "0 app start");
    Play(GetParam().script);
    EXPECT_EQ(loop.Done(), GetParam().done) << GetParam().what;
    EXPECT_EQ(StatusOf("app").state, GetParam().state) << GetParam().what;
    EXPECT_EQ(StatusOf("app").lastEnd.value().kind, GetParam().end) << GetParam().what;
}

// clang-format off
constexpr Row Rows[] = {
    {"crash", "100:ready 200:sig11 1000:-", "700 app start", State::Starting, EndKind::Crash},
    {"exit", "100:ready 200:exit 1000:-", "700 app start", State::Starting, EndKind::Exit},
    {"exit that it announces", "0:ready 100:bye 200:exit", "", State::Delayed, EndKind::Exit},
    {"hang, leaves its core", "100:ready 4000:ping 8999:ping 13999:sig6 15000:-",
     "13999 app abort, 14499 app start", State::Starting, EndKind::Hang},
    {"hang, does not", "100:ready 7100:sig9 7600:-",
     "5100 app abort, 7100 app kill, 7600 app start", State::Starting, EndKind::Hang},
    {"not ready, whatever it pings", "29999:ping 30000:- 30001:ready 32000:sig9",
     "30000 app term, 32000 app kill", State::Delayed, EndKind::NotReady},
    {"error", "100:error 200:exit", "", State::Delayed, EndKind::InternalError},
    {"error and no exit", "100:ready 200:error 9000:sig9",
     "5200 app term, 7200 app kill", State::Delayed, EndKind::InternalError},
    {"stop", "100:ready 200:stop 5100:bye 10000:exit 99999:-", "", State::Closed, EndKind::Asked},
    {"stop without a report", "100:ready 200:stop 5300:sig15",
     "5200 app term", State::Closed, EndKind::Asked},
    {"stop without an exit", "100:ready 200:stop 300:bye 7300:sig9",
     "5300 app term, 7300 app kill", State::Closed, EndKind::Asked},
    {"death after a stop", "100:ready 200:stop 250:sig11", "", State::Closed, EndKind::Asked},
    {"stop before ready", "100:stop 101:ready 102:sig15",
     "100 app term", State::Closed, EndKind::Asked},
    {"stop at once", "100:ready 200:kill 201:sig9", "200 app kill", State::Closed, EndKind::Asked},
    {"announced exit that does not come", "100:ready 200:bye 5300:sig15",
     "5200 app term", State::Delayed, EndKind::Hang},
    {"stop while it rests", "100:exit 200:stop 9000:-", "", State::Closed, EndKind::Exit},
    {"stop while it hangs", "0:ready 5001:stop 5002:sig6 9000:-",
     "5000 app abort", State::Closed, EndKind::Hang},
    {"restart", "100:ready 200:restart 300:bye 400:exit",
     "400 app start", State::Starting, EndKind::Asked},
    {"restart while it rests", "100:exit 200:restart",
     "200 app start", State::Starting, EndKind::Exit},
    {"start while it runs, rests and stops",
     "1:start 100:exit 101:start 600:ready 700:stop 701:start 702:exit",
     "600 app start, 702 app start", State::Starting, EndKind::Asked},
    {"start after a stop", "100:ready 200:stop 300:exit 400:start 500:ready",
     "400 app start", State::Ready, EndKind::Asked},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Rows, SupervisionTable, testing::ValuesIn(Rows));

TEST_F(Supervision, RestsLongerEachTimeUntilItWasHealthy)
{
    const auto failAfter = [&](milliseconds time)
    {
        Ready("app");
        for (const auto end = loop.now + time; loop.now < end;)
        {
            loop.PassTo(std::min(end, loop.now + milliseconds(4000)));
            Of("app").OnPing(terminal.Now());
        }
        loop.End("app", {false, SIGSEGV});
        const auto rest = StatusOf("app").startsIn.value();
        loop.PassTo(loop.now + rest);
        return rest.count();
    };
    for (const long rest : {500, 1000, 2000, 4000, 8000, 16000, 30000, 30000})
    {
        EXPECT_EQ(failAfter(milliseconds(59'999)), rest);
    }
    EXPECT_EQ(failAfter(milliseconds(60'000)), 500);
    EXPECT_EQ(failAfter(milliseconds(0)), 1000);
    EXPECT_EQ(StatusOf("app").restarts, 10U);
}

TEST_F(Supervision, RestsWhenItCannotBeStarted)
{
    auto broken = Application("app");
    broken.program.clear();
    Configure({broken});
    loop.End("app", {false, SIGTERM});
    EXPECT_EQ(StatusOf("app").state, State::Delayed);
    EXPECT_EQ(StatusOf("app").lastEnd->kind, EndKind::NotStarted);
    EXPECT_EQ(StatusOf("app").pid, 0U);
}

}  // namespace
}  // namespace app_manager::service
