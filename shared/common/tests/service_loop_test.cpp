// The loop on the real port, with clients in threads of their own and such that keep to no rules.

#include <csignal>
#include <cstdlib>
#include <future>

#include <gmock/gmock.h>

#include <component/plk/exceptions.h>
#include <shared/common/tvo/service/i_service_loop.h>
#include <xo/connection.h>
#include <xo/result.h>

#include "allocation_counter.h"
#include "linux_support.h"
#include "service/timer_queue.h"

namespace tvo::service {
namespace {

using platform::tests::Client;
using platform::tests::Connected;
using platform::tests::Eventually;
using platform::tests::LinuxTest;
using platform::tests::Packet;
using platform::tests::RawSocket;
using std::chrono::milliseconds;
using testing::Each;
using testing::ElementsAre;
using testing::StartsWith;

constexpr char Entity[] = "vx.tests.Loop";
constexpr std::uint16_t Riid = 4;
constexpr std::uint32_t ArenaSize = 65536;

struct Message
{
    wz_message head;
    std::uint64_t value;
};

enum Method : std::uint16_t
{
    Double,  ///< of the value; the arena comes back
    Park,
    Throw,
    TooLarge,
    Unsendable,
    Unknown,
};

/// What has come of a client's call.
struct Asked
{
    int result;
    std::uint32_t size;  ///< the whole size word
    std::uint64_t value;
    std::ptrdiff_t arena;
};

Asked Ask(WzTvoTransport transport,
          std::uint16_t mid,
          std::uint64_t value,
          std::uint16_t riid = Riid,
          std::uint32_t size = sizeof(Message),
          std::size_t arenaBytes = 0)
{
    Message request[] = {{{riid, mid, size, {}}, value}, {}};
    Message response{{0, 0, sizeof(Message), {}}, 0};
    thread_local std::vector<unsigned char> bytes(ArenaSize);
    const wz_arena out{bytes.data(), bytes.data() + arenaBytes, bytes.data() + ArenaSize};
    wz_arena in{bytes.data(), bytes.data(), bytes.data() + ArenaSize};
    const int result =
        transport.operations->call(&transport, &request->head, &out, &response.head, &in);
    return {result, response.head.size, response.value, in.current - in.start};
}

/// The same request of a client that keeps to no rules, with another interface number.
Packet Raw(std::uint16_t mid, std::uint32_t value, std::uint64_t sequence = 1)
{
    return {
        .messageBytes = sizeof(Message), .sequence = sequence, .mid = mid, .fields = {value, 0}};
}

class ServiceLoopTest : public LinuxTest
{
protected:
    static void SetUpTestSuite()
    {
        static const bool published = platform::tests::PublishAs(Entity, "published0");
        ASSERT_TRUE(published);
    }

    /// Offers the test's interface under a static name.
    void Serve(const std::string& name)
    {
        served.reach = ServedInterface::Reach::StaticName;
        served.name = name;
        loop->Serve(served, handlers);
    }

    RawSocket ServeRaw(const std::string& name)
    {
        served.riid = 0;
        Serve(name);
        return RawSocket::ConnectedTo("connections/" + name);
    }

    Outcome Handle(const ServiceCall& call)
    {
        const std::size_t allocated = platform::tests::Allocations();
        allocations = allocated - std::exchange(allocatedBefore, allocated);
        callers.push_back(call.caller);
        if (call.request->mid == TooLarge)
        {
            call.Response<std::array<Message, 3>>();
        }
        const Message* const request = call.Request<Message>();
        if (request == nullptr || call.request->mid >= Unknown)
        {
            return Outcome::Reject;
        }
        values.push_back(request->value);
        call.Response<Message>().value = 2 * request->value;
        switch (request->head.mid)
        {
            case Park:
                parked.push_back(call.ticket);
                return Outcome::Defer;
            case Throw:
                throw 1;
            case Unsendable:
                call.response->size |= 200U << WzMessageHandleCountShift;
                break;
            default:
                call.responseArena->current = std::copy(call.requestArena->start,
                                                        call.requestArena->current,
                                                        call.responseArena->start);
                break;
        }
        return Outcome::Answer;
    }

    int AnswerParked(std::size_t index, std::uint64_t value)
    {
        const Message response{{Riid, Park, sizeof(Message), {}}, value};
        return loop->Answer(parked.at(index), &response.head, nullptr);
    }

    /// Runs the loop until the function, in a thread of its own, has returned.
    void RunWhile(const std::function<void()>& function)
    {
        auto running = std::async(std::launch::async,
                                  [&]
                                  {
                                      function();
                                      loop->Stop();
                                  });
        EXPECT_EQ(loop->Run(), XoOk);
        running.get();
    }

    std::unique_ptr<IServiceLoop> loop = CreateServiceLoop();
    ServedInterface served{{}, {}, "vx.tests.Loop.Interface", Riid, 48, 48, ArenaSize, ArenaSize};
    InterfaceHandlers handlers{[this](const ServiceCall& call) { return Handle(call); }, {}, {}};
    std::vector<WzTvoPeer> callers;
    std::vector<std::uint64_t> values;
    std::vector<Ticket> parked;
    std::size_t allocatedBefore = 0;
    std::size_t allocations = 1;  ///< between the request before the last and the last
};

TEST_F(ServiceLoopTest, AnswersAndRejectsWithoutCostToAnybody)
{
    Serve("answers");
    callers.reserve(100);
    values.reserve(100);
    const struct
    {
        const char* what;
        std::uint16_t mid;
        std::uint16_t riid = Riid;
        std::uint32_t size = sizeof(Message);
    } rejected[] = {
        {"unknown method", Unknown},
        {"another interface", Double, Riid + 1},
        {"too short", Double, Riid, sizeof(wz_message)},
        {"too long", Double, Riid, sizeof(Message) + 8},
        {"a handler that throws", Throw},
        {"a response larger than declared", TooLarge},
        {"a response that cannot be sent", Unsendable},
    };
    RunWhile(
        [&]
        {
            Client client("answers");
            for (const auto& row : rejected)
            {
                SCOPED_TRACE(row.what);
                Asked asked = Ask(client.transport, row.mid, 3, row.riid, row.size);
                EXPECT_EQ(asked.result, XoOk);
                EXPECT_EQ(asked.size, sizeof(wz_message) | WzMessageFailedBit);
                asked = Ask(client.transport, Double, 21, Riid, sizeof(Message), ArenaSize);
                EXPECT_EQ(asked.size, sizeof(Message));
                EXPECT_EQ(asked.value, 42U);
                EXPECT_EQ(asked.arena, ArenaSize);
            }
            Ask(client.transport, Double, 1, Riid, sizeof(Message), ArenaSize);
        });
    EXPECT_EQ(allocations, 0U);
    EXPECT_EQ(callers.back().pid, static_cast<std::uint32_t>(::getpid()));
    EXPECT_EQ(callers.back().acknowledgedSequence, 14U);
}

TEST_F(ServiceLoopTest, ParkedRequestsAreAnsweredAtTheEndOfATurn)
{
    const RawSocket waiting = ServeRaw("parks");
    waiting.Send(Raw(Park, 1));
    loop->OnTurnEnd(
        [&]
        {
            if (!parked.empty())
            {
                EXPECT_EQ(AnswerParked(0, 7), XoOk);
                EXPECT_NE(AnswerParked(0, 5), XoOk) << "answered";
                loop->Stop();
                throw 1;
            }
        });
    EXPECT_EQ(loop->Run(), XoOk);
    const std::string reply = waiting.Read();
    EXPECT_EQ(reply.substr(reply.size() - 8), std::string("\7\0\0\0\0\0\0\0", 8));
    EXPECT_FALSE(waiting.IsReady());
}

TEST_F(ServiceLoopTest, TicketIsVoidOnceItsCallerAsksAnew)
{
    const RawSocket raw = ServeRaw("anew");
    raw.Send(Raw(Park, 1));
    raw.Send(Raw(Double, 2, 2));
    loop->OnTurnEnd(
        [&]
        {
            if (values.size() == 2)
            {
                EXPECT_NE(AnswerParked(0, 9), XoOk);
                loop->Stop();
            }
        });
    EXPECT_EQ(loop->Run(), XoOk);
    const std::string reply = raw.Read();
    EXPECT_EQ(reply[offsetof(platform::Frame, sequence)], 2);
    EXPECT_FALSE(raw.IsReady()) << "nothing comes in between";
    EXPECT_EQ(parked[0].origin.sequence, 1U);
}

TEST_F(ServiceLoopTest, EndOfACallerIsToldWhileItsRequestIsParked)
{
    std::uint64_t ended = 0;
    handlers.connectionEnded = [&](std::uint64_t connection)
    {
        ended = connection;
        EXPECT_NE(AnswerParked(0, 9), XoOk);
        loop->Stop();
    };
    RawSocket raw = ServeRaw("gone");
    raw.Send(Raw(Park, 1));
    loop->OnTurnEnd(
        [&]
        {
            if (!parked.empty())
            {
                raw.Close();
            }
        });
    EXPECT_EQ(loop->Run(), XoOk);
    EXPECT_EQ(ended, callers.at(0).connection);
}

TEST_F(ServiceLoopTest, RequestsThatWereThereComeBeforeTimers)
{
    std::vector<RawSocket> raw;
    raw.push_back(ServeRaw("before"));
    Serve("before.too");
    for (std::uint32_t number = 1; number < 20; ++number)
    {
        raw.push_back(
            RawSocket::ConnectedTo(number == 9 ? "connections/before.too" : "connections/before"));
        raw.back().Send(Raw(Double, number));
    }
    for (std::uint64_t i = 1; i <= 100; ++i)
    {
        raw.front().Send(Raw(Double, 0, i));
    }
    const TimerToken timer = loop->After(milliseconds(0), [&] { loop->Stop(); });
    EXPECT_EQ(loop->Run(), XoOk);
    for (std::uint64_t number = 1; number < 20; ++number)
    {
        EXPECT_EQ(std::count(values.begin(), values.end(), number), 1) << number;
    }
    EXPECT_LE(std::count(values.begin(), values.end(), 0U), 3) << "the one that floods";
}

TEST_F(ServiceLoopTest, FloodKeepsNeitherTimersNorOthersWaiting)
{
    std::atomic<unsigned> ended = 0;
    std::atomic<unsigned> ticks = 0;
    handlers.connectionEnded = [&](std::uint64_t)
    {
        ++ended;
    };
    Serve("flood");
    const TimerToken timer = loop->Every(milliseconds(1), [&] { ++ticks; });
    const auto flood = [](const std::atomic<bool>& over)
    {
        // Does not read its answers, which costs it the connection; then it comes as one that does.
        const RawSocket raw = RawSocket::ConnectedTo("connections/flood");
        std::uint64_t sent = 0;
        while (raw.TrySend(Packet{.messageBytes = sizeof(Message), .sequence = ++sent}))
        {}
        Client client("flood");
        WzTvoSetTransportTimeouts(&client.transport, 0, 0);
        while (!over)
        {
            Ask(client.transport, Double, 1);
            ++sent;
        }
        return sent;
    };
    RunWhile(
        [&]
        {
            std::atomic<bool> over = false;
            auto flooding = std::async(std::launch::async, flood, std::cref(over));
            {
                Client innocent("flood");
                for (std::uint64_t i = 0; i < 100 || ended == 0 || ticks < 20; ++i)
                {
                    ASSERT_EQ(Ask(innocent.transport, Double, i).value, 2 * i);
                }
            }
            over = true;
            EXPECT_GT(flooding.get(), 200U);
            EXPECT_TRUE(Eventually([&] { return ended == 3; }));
        });
}

TEST_F(ServiceLoopTest, TimersCallBackUntilTheirTokensGo)
{
    std::vector<int> called;
    TimerToken cancelled = loop->After(milliseconds(0), [&] { called.push_back(0); });
    const TimerToken once = loop->After(milliseconds(0), [&] { called.push_back(1); });
    TimerToken last;
    TimerToken repeating;
    const auto repeat = [&]
    {
        called.push_back(2);
        if (called.size() == 4)
        {
            repeating.reset();
            last = loop->After(milliseconds(3), [&] { loop->Stop(); });
            throw 1;
        }
    };
    repeating = loop->Every(milliseconds(1), repeat);
    cancelled.reset();
    EXPECT_EQ(loop->Run(), XoOk);
    EXPECT_THAT(called, ElementsAre(1, 2, 2, 2));
    loop.reset();
}

TEST(TimerQueue, DoesNotMakeUpForWhatWasMissed)
{
    TimerQueue queue;
    const TimerToken never = queue.AddOnce(milliseconds::max(), [] {});
    int called = 0;
    const auto before = TimerQueue::Clock::now();
    const TimerToken timer = queue.AddRepeating(milliseconds(1000), [&] { ++called; });
    const auto after = TimerQueue::Clock::now();
    EXPECT_FALSE(queue.HasDue(before + milliseconds(999)));
    EXPECT_TRUE(queue.HasDue(after + milliseconds(1000)));
    queue.RunDue(after + milliseconds(3500));
    EXPECT_EQ(called, 1);
    EXPECT_FALSE(queue.HasDue(before + milliseconds(3999)));
    EXPECT_TRUE(queue.HasDue(after + milliseconds(4000)));
}

TEST_F(ServiceLoopTest, ChildrensEndsAreTold)
{
    std::unique_ptr<IChild> child;
    std::vector<int> end;
    const auto ended = [&](const ChildEnd& told)
    {
        end = {told.byItself, told.status};
        child.reset();
        loop->Stop();
    };
    const char* const script =
        "test $HOME = elsewhere && test -n \"$PATH\" && test -z \"$GONE\" && exit $NEW";
    ::setenv("GONE", "no", 1);
    child = loop->StartChild({"/bin/sh", {"sh", "-c", script}, {"HOME=elsewhere", "NEW=9", "GONE"}},
                             ended);
    loop->Run();
    EXPECT_THAT(end, ElementsAre(1, 9));
    child = loop->StartChild({"/bin/sleep", {"sleep", "100"}, {}}, ended);
    child->Terminate();
    loop->Run();
    EXPECT_THAT(end, ElementsAre(0, SIGTERM));
    EXPECT_THROW(static_cast<void>(loop->StartChild({"/nowhere", {"child"}, {}}, ended)),
                 zin::CheckResultFailedException);

    child = loop->StartChild({"/bin/true", {"true"}, {}}, ended);
    const auto pid = static_cast<pid_t>(child->Pid());
    siginfo_t info{};
    EXPECT_EQ(::waitid(P_PID, child->Pid(), &info, WEXITED | WNOWAIT), 0);
    child.reset();
    loop->OnTurnEnd([&] { loop->Stop(); });
    loop->Run();
    EXPECT_THAT(end, ElementsAre(0, SIGTERM)) << "not told";
    EXPECT_EQ(::kill(pid, 0), -1) << "reaped all the same";
    child = loop->StartChild({"/bin/sleep", {"sleep", "100"}, {}}, ended);
    loop.reset();
    child->Kill();
}

TEST_F(ServiceLoopTest, WishesToReloadAndNewNamesAreTold)
{
    int told = 0;
    loop->OnReload([&] { ++told; });
    EXPECT_TRUE(loop->OnServersChange([&] { loop->Stop(); }));
    ::kill(::getpid(), SIGHUP);
    EXPECT_TRUE(::shared::ipc_utils::TryPublishService(Entity, "changes"));
    EXPECT_EQ(loop->Run(), XoOk);
    EXPECT_EQ(told, 1);
}

TEST_F(ServiceLoopTest, StopsInOrder)
{
    const RawSocket raw = ServeRaw("stops");
    EXPECT_THROW(Serve("stops"), zin::CheckFailedException) << "held";
    raw.Send(Raw(Park, 1));
    loop->OnTurnEnd(
        [&]
        {
            if (!parked.empty())
            {
                ::kill(::getpid(), SIGTERM);
            }
        });
    EXPECT_EQ(loop->Run(), XoOk) << "by the signal";
    int told = 0;
    loop->OnTermination(
        [&]
        {
            ++told;
            loop->Stop();
        });
    ::kill(::getpid(), SIGINT);
    EXPECT_EQ(loop->Run(), XoOk);
    EXPECT_EQ(told, 1);
    loop->OnTurnEnd({});
    loop->Stop();
    EXPECT_EQ(loop->Run(), XoOk) << "stopped before";
    loop.reset();
    EXPECT_EQ(raw.Read(), "") << "parked until then";
    EXPECT_EQ(ServiceLocatorConnect("stops"), XoInvalidHandle);
}

TEST_F(ServiceLoopTest, LetsClientsOfPublishedServicesIn)
{
    EXPECT_THROW(loop->Serve(served, handlers), zin::CheckFailedException) << "no name";
    std::vector<std::string> names;
    std::vector<std::uint32_t> pids;
    for (served.riid = 1; served.riid <= 3; ++served.riid)
    {
        handlers.admit = [&, riid = served.riid](const std::string& client, std::uint32_t pid)
        {
            names.push_back(client);
            pids.push_back(pid);
            return riid == 3 ? throw 1 : riid == 1;
        };
        served.name = "published" + std::to_string(served.riid);
        loop->Serve(served, handlers);
    }
    RunWhile(
        [&]
        {
            for (const char* service : {"published2", "published3", "published4"})
            {
                EXPECT_EQ(platform::tests::Connect(Entity, service).result, XoRefused);
            }
            const Connected made = platform::tests::Connect(Entity, "published1");
            ASSERT_EQ(made.result, XoOk);
            EXPECT_EQ(made.riid, 1U);
            const Client client(made.handle);
            EXPECT_EQ(Ask(client.transport, Double, 4, 1).value, 8U);
        });
    EXPECT_EQ(names.size(), 3U);
    EXPECT_THAT(names, Each(StartsWith(std::string(Entity) + "@" + std::to_string(::getpid()))));
    EXPECT_THAT(pids, Each(static_cast<std::uint32_t>(::getpid())));
}

}  // namespace
}  // namespace tvo::service
