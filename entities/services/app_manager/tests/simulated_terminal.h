#pragma once

#include <map>
#include <set>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "terminal/terminal.h"

namespace app_manager::service {

using std::chrono::milliseconds;
using tvo::service::ChildEnd;

/// A loop whose time, requests and processes are the test's. What is done to processes is noted.
class FakeLoop : public tvo::service::IServiceLoop
{
public:
    using Token = tvo::service::TimerToken;
    using Ended = std::function<void(const ChildEnd&)>;

    struct Child final : tvo::service::IChild
    {
        Child(FakeLoop& owner, std::string itsName, std::uint32_t itsPid)
            : loop(owner), name(std::move(itsName)), pid(itsPid)
        {}
        std::uint32_t Pid() const override
        {
            return pid;
        }
        void Terminate() override
        {
            loop.Note(name, "term");
        }
        void Kill() override
        {
            loop.Note(name, "kill");
        }
        void Abort() override
        {
            loop.Note(name, "abort");
        }
        bool Serves(const std::string& server) const override
        {
            return loop.served.count(server) != 0;
        }

        FakeLoop& loop;
        const std::string name;
        const std::uint32_t pid;
    };

    struct Timer final : tvo::service::ITimerToken
    {
        Timer(FakeLoop& owner, milliseconds delay, milliseconds every, Callback what)
            : loop(owner), due(owner.now + delay), interval(every), callback(std::move(what))
        {
            loop.timers.insert(this);
        }
        ~Timer() override
        {
            loop.timers.erase(this);
        }

        FakeLoop& loop;
        milliseconds due;
        const milliseconds interval;
        const Callback callback;
    };

    Token After(milliseconds delay, Callback callback) override
    {
        return std::make_unique<Timer>(*this, delay, milliseconds::max() / 2, callback);
    }
    Token Every(milliseconds interval, Callback callback) override
    {
        return std::make_unique<Timer>(*this, interval, interval, callback);
    }
    std::unique_ptr<tvo::service::IChild> StartChild(const tvo::service::ChildProgram& program,
                                                     Ended ended) override
    {
        const std::string& name = program.arguments.at(0);
        Note(name, "start");
        processes[name] = {++lastPid, std::move(ended)};
        return program.path.empty() ? throw 1 : std::make_unique<Child>(*this, name, lastPid);
    }
    void OnTurnEnd(Callback callback) override
    {
        turnEnd = std::move(callback);
    }
    MOCK_METHOD(int,
                Answer,
                (tvo::service::Ticket, const wz_message*, const wz_arena*),
                (override));
    MOCK_METHOD(void,
                Serve,
                (const tvo::service::ServedInterface&, tvo::service::InterfaceHandlers),
                (override));
    MOCK_METHOD(void, OnTermination, (Callback), (override));
    MOCK_METHOD(void, OnReload, (Callback), (override));
    MOCK_METHOD(bool, OnServersChange, (Callback), (override));
    MOCK_METHOD(int, Run, (), (override));
    MOCK_METHOD(void, Stop, (), (override));

    void Note(const std::string& name, const std::string& what)
    {
        done += fmt::format("{}{} {} {}", done.empty() ? "" : ", ", now.count(), name, what);
    }

    /// @returns what has been done since the last time, with the moments of it
    std::string Done()
    {
        return std::exchange(done, {});
    }

    void End(const std::string& name, const ChildEnd& end)
    {
        const Ended ended = processes.at(name).second;
        processes.erase(name);
        ended(end);
        turnEnd();
    }

    /// Lets time go by with all that falls due.
    void PassTo(milliseconds moment)
    {
        const auto isEarlier = [](const Timer* one, const Timer* other)
        {
            return one->due < other->due;
        };
        for (;;)
        {
            Timer* const next = *std::min_element(timers.begin(), timers.end(), isEarlier);
            if (next->due > moment)
            {
                break;
            }
            now = std::max(now, next->due);
            next->due = now + next->interval;
            Callback(next->callback)();
            turnEnd();
        }
        now = moment;
    }

    milliseconds now{0};
    std::set<Timer*> timers;
    std::set<std::string> served;
    std::map<std::string, std::pair<std::uint32_t, Ended>> processes;
    Callback turnEnd;

private:
    std::string done;
    std::uint32_t lastPid = 100;
};

struct MockNotifier : INotifier
{
    MOCK_METHOD(void, Ready, (), (override));
    MOCK_METHOD(void, Reloading, (), (override));
    MOCK_METHOD(void, Stopping, (), (override));
    MOCK_METHOD(void, Status, (const std::string&), (override));
    MOCK_METHOD(void, Alive, (), (override));
    MOCK_METHOD(std::optional<milliseconds>, AliveInterval, (), (const, override));
};

inline ChildConfig Application(const std::string& name, std::vector<std::string> needs = {})
{
    const milliseconds s(1000);
    return {control::Kind::Application,
            name,
            "/program",
            {name},
            {},
            "",
            std::move(needs),
            {control::Command::Hide, control::Command::Close},
            {30 * s, 5 * s, 5 * s, 5 * s, 2 * s, s / 2, 30 * s, 60 * s}};
}

/// A service that is ready once its own name is served.
inline ChildConfig Service(const std::string& name)
{
    ChildConfig config = Application(name);
    config.kind = control::Kind::Service;
    config.provides = name;
    return config;
}

class SimulatedTerminal : public testing::Test
{
protected:
    void Configure(const std::vector<ChildConfig>& configs)
    {
        terminal.Configure(configs);
        // Each turn finds what the one before has started.
        for (std::size_t turn = 0; turn <= configs.size(); ++turn)
        {
            terminal.Settle();
        }
    }

    SupervisedChild& Of(const std::string& name)
    {
        return terminal.Find(name)->Supervision();
    }

    control::ApplicationStatus StatusOf(const std::string& name)
    {
        return Of(name).Status(terminal.Now());
    }

    void Ready(const std::string& name)
    {
        Of(name).OnReady(terminal.Now());
        terminal.Settle();
    }

    testing::NiceMock<FakeLoop> loop;
    testing::NiceMock<MockNotifier> notifier;
    Terminal terminal{loop,
                      notifier,
                      [this]
                      {
                          return Instant{TimePoint(loop.now), control::Moment(loop.now)};
                      }};
};

}  // namespace app_manager::service
