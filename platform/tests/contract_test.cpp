// What every implementation of the platform's calls keeps to; built once with the Linux port and
// once with the double.

#include <atomic>
#include <cstring>
#include <future>
#include <set>

#include <gmock/gmock.h>

#include <shared/ipc_utils/publish.h>
#include <tvo/random.h>

#include "support.h"

namespace platform::tests {
namespace {

constexpr const char* Entity = "vx.tests.Contract";
constexpr const char* Service = "contract_service";

/// Publishes once in the process; a second time is a second line.
void Publish()
{
    static const bool published = []
    {
        static constexpr TvoEndpointDescription Endpoints[] = {
            {3, "part.Point", "Point", "vx.tests.Point"}};
        static constexpr TvoComponentDescription Components[] = {
            {"part", "vx.tests.Part", Endpoints, 1}};
        static constexpr TvoComponentTree Tree{Entity, nullptr, 0, Components, 1};
        return TvoTaskSetComponentTree(TvoTaskGetSelf(), &Tree) == XoOk &&
               shared::ipc_utils::TryPublishService("vx.tests.Interface", Service);
    }();
    ASSERT_TRUE(published);
}

struct Connected
{
    int result;
    std::uint32_t handle;
    std::uint32_t riid;
};

std::future<Connected> ConnectInBackground(const char* service, std::uint32_t timeout)
{
    return std::async(std::launch::async,
                      [=]
                      {
                          Connected made{};
                          made.result =
                              XoCmConnect(Entity, service, timeout, &made.handle, &made.riid);
                          return made;
                      });
}

struct Names
{
    char client[XoCmNameSize] = {};
    char service[XoCmNameSize] = {};
};

int Listen(Names& names, std::uint32_t timeout = 5000)
{
    return XoCmListen(nullptr, timeout, names.client, names.service);
}

std::int64_t MillisecondsOf(const std::function<void()>& work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration_cast<milliseconds>(Clock::now() - start).count();
}

TEST(Transport, CarriesMessageAndArenaThereAndBack)
{
    EchoServer server("echo");
    Client client("echo");
    Letter request(80, 300);
    request.Head().iid = 5;
    request.Head().mid = 2;
    request.bytes[24] = 0xAB;
    request.Write("text");
    Letter response(80, 300);
    std::memset(response.bytes.data() + 24, 0xEE, 56);
    ASSERT_EQ(Call(client.transport, request, response), XoOk);
    EXPECT_EQ(response.Head().iid, 5);
    EXPECT_EQ(response.Head().mid, 2);
    EXPECT_EQ(response.bytes[24], 0xAB);
    EXPECT_EQ(response.bytes[79], 0);
    EXPECT_EQ(response.Text(), "text");
}

TEST(Transport, ZeroesWhatAShortRequestLeavesFree)
{
    Endpoint endpoint("zeroes");
    auto call = std::async(std::launch::async,
                           []
                           {
                               Client client("zeroes");
                               Letter request(32);
                               Letter response;
                               return Call(client.transport, request, response);
                           });
    Letter received(80);
    std::memset(received.bytes.data() + 24, 0xEE, 100);
    ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
    EXPECT_EQ(received.bytes[32], 0);
    EXPECT_EQ(received.bytes[79], 0);
    EXPECT_EQ(received.bytes[80], 0xEE) << "behind the buffer";
    Letter response(24);
    EXPECT_EQ(Reply(endpoint.transport, response), XoOk);
    EXPECT_EQ(call.get(), XoOk);
}

TEST(Transport, CarriesArenasOfEverySize)
{
    EchoServer server("arenas", std::size_t{1} << 20);
    Client client("arenas");
    for (const std::size_t size : {0UL, 1UL, 65535UL, 65536UL, 65537UL, 560128UL, 1048576UL})
    {
        SCOPED_TRACE(size);
        std::string text(size, 'x');
        for (std::size_t i = 0; i < size; i += 4096)
        {
            text[i] = static_cast<char>(i >> 12);
        }
        Letter request(80, size);
        request.Write(text);
        Letter response(80, size);
        ASSERT_EQ(Call(client.transport, request, response), XoOk);
        EXPECT_TRUE(response.Text() == text);
    }
}

TEST(Transport, RefusesWhatIsTooBigOrMakesNoSense)
{
    struct Row
    {
        const char* what;
        std::uint32_t size;
        std::size_t arena;
        int expected;
    };
    EchoServer server("refuses", std::size_t{1} << 20);
    Client client("refuses");
    for (const Row& row : {Row{"largest message", 4096, 0, XoOk},
                           Row{"one byte more", 4097, 0, XoTooBig},
                           Row{"arena one byte too large", 80, 1048577, XoTooBig},
                           Row{"shorter than a header", 23, 0, XoInvalidArgument},
                           Row{"nine handles", 4096 | 9U << 23, 0, XoInvalidArgument},
                           Row{"slots behind the end", 39 | 1U << 23, 0, XoInvalidArgument},
                           Row{"a number that is no handle", 80 | 1U << 23, 0, XoInvalidArgument}})
    {
        SCOPED_TRACE(row.what);
        Letter request(row.size, row.arena);
        request.arena.current = request.arena.end;
        Letter response(4096, row.arena);
        EXPECT_EQ(Call(client.transport, request, response), row.expected);
    }
}

TEST(Transport, ReplySendsAWholeHeaderWhateverTheSizeWord)
{
    Endpoint endpoint("header");
    auto call = std::async(std::launch::async,
                           []
                           {
                               Client client("header");
                               Letter request;
                               Letter response(80);
                               const int result = Call(client.transport, request, response);
                               return std::pair(result, response.Head().mid);
                           });
    Letter request;
    ASSERT_EQ(Receive(endpoint.transport, request), XoOk);
    Letter response(0);
    response.Head().mid = 9;
    EXPECT_EQ(Reply(endpoint.transport, response), XoOk);
    EXPECT_EQ(call.get(), std::pair(XoOk, std::uint16_t{9}));
    EXPECT_NE(Reply(endpoint.transport, response), XoOk) << "answered already";
}

TEST(Transport, AbandonedCallsReplyIsNotTheNextCallsReply)
{
    Endpoint endpoint("abandoned");
    Client client("abandoned");
    WzTvoSetTransportTimeouts(&client.transport, 0, 20);
    Letter request;
    Letter response;
    EXPECT_EQ(Call(client.transport, request, response), WzTimedOut);
    EXPECT_EQ(Call(client.transport, request, response), WzTimedOut);

    WzTvoSetTransportTimeouts(&client.transport, 0, 5000);
    request.bytes[24] = 3;
    auto call =
        std::async(std::launch::async, [&] { return Call(client.transport, request, response); });
    for (int i = 0; i < 3; ++i)
    {
        Letter received;
        ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
        received.bytes[25] = static_cast<unsigned char>(i);
        WzTvoPeer peer{};
        ASSERT_EQ(WzTvoTransportGetPeer(&endpoint.transport, &peer), XoOk);
        EXPECT_EQ(peer.acknowledgedSequence, 0U) << "no reply has reached the caller";
        ASSERT_EQ(Reply(endpoint.transport, received), XoOk);
    }
    EXPECT_EQ(call.get(), XoOk);
    EXPECT_EQ(response.bytes[24], 3);
    EXPECT_EQ(response.bytes[25], 2);

    auto next =
        std::async(std::launch::async, [&] { return Call(client.transport, request, response); });
    Letter received;
    ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
    WzTvoPeer peer{};
    ASSERT_EQ(WzTvoTransportGetPeer(&endpoint.transport, &peer), XoOk);
    EXPECT_EQ(peer.acknowledgedSequence, 3U);
    EXPECT_EQ(peer.pid, static_cast<std::uint32_t>(::getpid()));
    EXPECT_EQ(Reply(endpoint.transport, received), XoOk);
    EXPECT_EQ(next.get(), XoOk);
}

TEST(Transport, ReplyToACallerThatHasGoneFails)
{
    Endpoint endpoint("left");
    Letter received;
    {
        Client dead("left");
        WzTvoSetTransportTimeouts(&dead.transport, 0, 0);
        Letter request;
        Letter response;
        EXPECT_EQ(Call(dead.transport, request, response), WzTimedOut);
        ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
    }
    EXPECT_EQ(Reply(endpoint.transport, received), XoObjectGone);
    WzTvoPeer peer{};
    EXPECT_NE(WzTvoTransportGetPeer(&endpoint.transport, &peer), XoOk);
}

TEST(Transport, ThreadsOnOneConnectionQueue)
{
    EchoServer server("queue");
    Client client("queue");
    std::vector<std::thread> threads;
    std::atomic<int> right = 0;
    for (unsigned char number = 0; number < 4; ++number)
    {
        threads.emplace_back(
            [&, number]
            {
                WzTvoTransport own = client.transport;
                for (unsigned char i = 0; i < 50; ++i)
                {
                    Letter request;
                    request.bytes[24] = number;
                    request.bytes[25] = i;
                    Letter response;
                    const bool answered = Call(own, request, response) == XoOk;
                    right += answered && response.bytes[24] == number && response.bytes[25] == i;
                }
            });
    }
    for (auto& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(right, 200);
}

TEST(Transport, ClosingTheConnectionFreesItsCallersAtOnce)
{
    Endpoint endpoint("close-client");
    const std::uint32_t handle = ServiceLocatorConnect("close-client");
    const auto call = [handle]
    {
        WzTvoTransport transport = MakeTransport(handle, 0, WzInfinite);
        Letter request;
        Letter response;
        return Call(transport, request, response);
    };
    auto calling = std::async(std::launch::async, call);
    Letter received;
    ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
    auto queued = std::async(std::launch::async, call);
    EXPECT_LT(MillisecondsOf(
                  [&]
                  {
                      EXPECT_EQ(XoHandleClose(handle), XoOk);
                      EXPECT_EQ(calling.get(), XoObjectGone);
                      EXPECT_EQ(queued.get(), XoObjectGone);
                  }),
              1000);
    EXPECT_EQ(call(), XoObjectGone);
    EXPECT_EQ(XoHandleClose(handle), XoObjectGone);
}

TEST(Transport, ClosingTheEndpointFreesReceiversAndCallers)
{
    std::uint64_t identifier = 0;
    const std::uint32_t handle = ServiceLocatorRegister("close-server", nullptr, 0, &identifier);
    Client client("close-server");
    auto calling = std::async(std::launch::async,
                              [&]
                              {
                                  Letter request;
                                  Letter response;
                                  return Call(client.transport, request, response);
                              });
    Letter received;
    WzTvoTransport transport = MakeTransport(handle);
    ASSERT_EQ(Receive(transport, received), XoOk);
    auto receiving = std::async(std::launch::async,
                                [handle]
                                {
                                    WzTvoTransport own = MakeTransport(handle, WzInfinite);
                                    Letter request;
                                    return Receive(own, request);
                                });
    ServiceLocatorUnregister(identifier);
    EXPECT_EQ(receiving.get(), XoObjectGone);
    EXPECT_EQ(calling.get(), XoObjectGone);
    EXPECT_EQ(ServiceLocatorConnect("close-server"), XoInvalidHandle);
}

TEST(Ticket, AnswersLaterWhileOthersAreServed)
{
    Endpoint endpoint("tickets");
    const auto call = [](unsigned char number)
    {
        Client client("tickets");
        Letter request;
        request.bytes[24] = number;
        Letter response;
        EXPECT_EQ(Call(client.transport, request, response), XoOk);
        return response.bytes[24];
    };
    auto first = std::async(std::launch::async, call, 1);
    Letter kept;
    ASSERT_EQ(Receive(endpoint.transport, kept), XoOk);
    WzTvoTicket ticket{};
    ASSERT_EQ(WzTvoTransportDetach(&endpoint.transport, &ticket), XoOk);
    EXPECT_NE(Reply(endpoint.transport, kept), XoOk) << "detached";
    EXPECT_NE(WzTvoTransportDetach(&endpoint.transport, &ticket), XoOk);

    auto second = std::async(std::launch::async, call, 2);
    Letter other;
    ASSERT_EQ(Receive(endpoint.transport, other), XoOk);
    EXPECT_EQ(Reply(endpoint.transport, other), XoOk);
    EXPECT_EQ(second.get(), 2);

    EXPECT_EQ(WzTvoTicketReply(&ticket, &kept.Head(), nullptr), XoOk);
    EXPECT_EQ(first.get(), 1);
    EXPECT_NE(WzTvoTicketReply(&ticket, &kept.Head(), nullptr), XoOk) << "used up";
}

TEST(Ticket, IsVoidedByANewerOneAndByHangUp)
{
    Endpoint endpoint("voided");
    WzTvoTicket older{};
    WzTvoTicket newer{};
    Letter received;
    {
        Client client("voided");
        WzTvoSetTransportTimeouts(&client.transport, 0, 0);
        for (WzTvoTicket* ticket : {&older, &newer})
        {
            Letter request;
            Letter response;
            EXPECT_EQ(Call(client.transport, request, response), WzTimedOut);
            ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
            ASSERT_EQ(WzTvoTransportDetach(&endpoint.transport, ticket), XoOk);
        }
        EXPECT_NE(WzTvoTicketReply(&older, &received.Head(), nullptr), XoOk);
    }
    EXPECT_NE(WzTvoTicketReply(&newer, &received.Head(), nullptr), XoOk);
}

TEST(Connections, AreMadeWhenTheServerAccepts)
{
    Publish();
    Endpoint endpoint("accepting");
    auto connecting = ConnectInBackground(Service, WzInfinite);
    Names names;
    ASSERT_EQ(Listen(names), XoOk);
    EXPECT_STREQ(names.service, Service);
    EXPECT_THAT(names.client, testing::StartsWith(std::string(Entity) + "@"));
    std::uint32_t joined = 0;
    ASSERT_EQ(XoCmAccept(names.client, names.service, 17, endpoint.handle, &joined), XoOk);
    EXPECT_EQ(joined, endpoint.handle);
    EXPECT_EQ(XoCmAccept(names.client, names.service, 17, endpoint.handle, &joined), XoObjectGone);
    const Connected made = connecting.get();
    ASSERT_EQ(made.result, XoOk);
    EXPECT_EQ(made.riid, 17U);

    Client client(made.handle);
    auto call = std::async(std::launch::async,
                           [&]
                           {
                               Letter request;
                               Letter response;
                               return Call(client.transport, request, response);
                           });
    Letter received;
    ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
    EXPECT_EQ(Reply(endpoint.transport, received), XoOk);
    EXPECT_EQ(call.get(), XoOk);
}

TEST(Connections, CanGetAnEndpointOfTheirOwn)
{
    Publish();
    auto connecting = ConnectInBackground(Service, 5000);
    Names names;
    ASSERT_EQ(Listen(names), XoOk);
    std::uint32_t endpoint = XoInvalidHandle;
    ASSERT_EQ(XoCmAccept(names.client, names.service, 1, XoInvalidHandle, &endpoint), XoOk);
    const Connected made = connecting.get();
    EXPECT_EQ(made.result, XoOk);
    EXPECT_EQ(XoHandleClose(endpoint), XoOk);
    Client client(made.handle);
    Letter request;
    Letter response;
    EXPECT_EQ(Call(client.transport, request, response), XoObjectGone);
}

TEST(Connections, FailWithTheFittingCode)
{
    Publish();
    std::uint32_t handle = 0;
    std::uint32_t riid = 0;
    EXPECT_EQ(XoCmConnect("vx.tests.Nobody", Service, 5000, &handle, &riid), XoObjectGone);
    EXPECT_EQ(handle, XoInvalidHandle);
    EXPECT_EQ(riid, 65535U);
    EXPECT_EQ(XoCmConnect(Entity, Service, 20, &handle, &riid), XoTimedOut);

    Names names;
    EXPECT_EQ(Listen(names, 20), XoTimedOut) << "the client has gone";
    auto connecting = ConnectInBackground(Service, 5000);
    ASSERT_EQ(Listen(names), XoOk);
    EXPECT_EQ(XoCmAccept(names.client, Service, 1, 0x123456, &handle), XoObjectGone);
    EXPECT_EQ(XoCmDrop(names.client, Service), XoOk) << "still pending";
    EXPECT_EQ(XoCmDrop(names.client, Service), XoObjectGone);
    EXPECT_EQ(connecting.get().result, XoRefused);
}

TEST(Connections, ARequestThatIsLeftAloneComesAgainAfterTheOthers)
{
    Publish();
    auto first = ConnectInBackground(Service, 10000);
    Names one;
    ASSERT_EQ(Listen(one), XoOk);
    Names again;
    ASSERT_EQ(Listen(again), XoOk);
    EXPECT_STREQ(again.client, one.client);
    auto second = ConnectInBackground(Service, 10000);
    Names two;
    ASSERT_TRUE(Eventually(
        [&] { return Listen(two) == XoOk && std::strcmp(two.client, one.client) != 0; }));
    ASSERT_EQ(Listen(again), XoOk);
    EXPECT_STREQ(again.client, one.client) << "reported longest ago";
    EXPECT_EQ(XoCmDrop(one.client, Service), XoOk);
    EXPECT_EQ(XoCmDrop(two.client, Service), XoOk);
    EXPECT_EQ(first.get().result, XoRefused);
    EXPECT_EQ(second.get().result, XoRefused);
}

TEST(Names, StaticOnesAreHeldByOne)
{
    Endpoint endpoint("held");
    std::uint64_t identifier = 1;
    EXPECT_EQ(ServiceLocatorRegister("held", nullptr, 0, &identifier), XoInvalidHandle);
    EXPECT_EQ(identifier, 0U);
    EXPECT_EQ(ServiceLocatorConnect("not-held"), XoInvalidHandle);
}

TEST(Names, LeadToInterfaceNumbersAndServices)
{
    Publish();
    Endpoint endpoint("numbers");
    Client client("numbers");
    EXPECT_EQ(ServiceLocatorGetRiid(client.handle, "part.Point"), 3);
    EXPECT_EQ(ServiceLocatorGetRiid(client.handle, "part.Other"), 65535);
    EXPECT_EQ(ServiceLocatorGetRiid(endpoint.handle, "part.Point"), 65535);

    const auto target = shared::ipc_utils::FindConnectionTargetForType("vx.tests.Interface", 0);
    ASSERT_TRUE(target);
    EXPECT_STREQ(target->first.data(), Entity);
    EXPECT_STREQ(target->second.data(), Service);
    EXPECT_FALSE(shared::ipc_utils::FindConnectionTargetForType("vx.tests.None", 20));
}

TEST(Task, KnowsOnlyItself)
{
    Publish();
    const std::uint32_t self = TvoTaskGetSelf();
    EXPECT_EQ(TvoTaskGetSelf(), self);
    EXPECT_EQ(TvoTaskConnectToService(self, self, "own"), XoOk);
    EXPECT_LT(TvoTaskConnectToService(self, self + 1, "own"), 0);
    EXPECT_LT(TvoTaskSetComponentTree(self + 1, nullptr), 0);
    EXPECT_NE(XoHandleClose(self), XoOk);
}

TEST(Random, FillsTheBuffer)
{
    std::array<std::uint64_t, 64> numbers{};
    ASSERT_EQ(TvoRandomGenerate(sizeof numbers, numbers.data()), XoOk);
    const std::set<std::uint64_t> different(numbers.begin(), numbers.end());
    EXPECT_EQ(different.size(), numbers.size());
}

/// An event object and a notice that waits for it.
class NoticeTest : public testing::Test
{
protected:
    NoticeTest()
    {
        EXPECT_EQ(XoEventCreate(&setter, &waiter), XoOk);
        EXPECT_EQ(XoNoticeCreate(&notice), XoOk);
    }

    ~NoticeTest() override
    {
        XoNoticeRelease(notice);
        XoHandleClose(setter);
        XoHandleClose(waiter);
    }

    /// Bits of the next event, or 0 when none comes in time.
    std::uint32_t NextBits(unsigned long timeout = 5000)
    {
        EventDesc event{};
        unsigned long received = 0;
        const int result = XoNoticeGetEvent(notice, timeout, 1, &event, &received);
        EXPECT_TRUE(result == XoOk || result == XoTimedOut) << std::hex << result;
        EXPECT_EQ(result == XoOk ? 1U : 0U, received);
        return event.events;
    }

    std::uint32_t setter = 0;
    std::uint32_t waiter = 0;
    SNotice* notice = nullptr;
};

TEST_F(NoticeTest, ReportsJoinedBitsWithinTheMask)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 42), XoOk);
    EXPECT_NE(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 43), XoOk) << "one an object";
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x30000), XoOk);
    EventDesc event{};
    unsigned long received = 0;
    ASSERT_EQ(XoNoticeGetEvent(notice, 5000, 1, &event, &received), XoOk);
    EXPECT_EQ(event.id, 42U);
    EXPECT_EQ(event.events, 0x10000U);
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x20000), XoOk);
    EXPECT_EQ(NextBits(20), 0U) << "outside the mask";
}

TEST_F(NoticeTest, LosesNoBitWhenNobodyReads)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, ~0U, 1), XoOk);
    for (unsigned bit = 1; bit < 32; ++bit)
    {
        for (int i = 0; i < 100; ++i)
        {
            ASSERT_EQ(XoNoticeSetObjectEvent(setter, 1U << bit), XoOk);
        }
    }
    EXPECT_EQ(NextBits(), 0xFFFFFFFEU);
    EXPECT_EQ(NextBits(0), 0U);
}

TEST_F(NoticeTest, ReportsTheEndOnceTogetherWithWhatCameBefore)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 1), XoOk);
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x10000), XoOk);
    ASSERT_EQ(XoHandleClose(setter), XoOk);
    EXPECT_EQ(NextBits(), 0x10001U);
    EXPECT_EQ(NextBits(20), 0U);
}

TEST_F(NoticeTest, ReportsTheEndWhenItsOwnHandleIsClosed)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 1), XoOk);
    auto waiting = std::async(std::launch::async, [this] { return NextBits(); });
    ASSERT_EQ(XoHandleClose(waiter), XoOk);
    EXPECT_EQ(waiting.get(), XoEventClosed);
    EXPECT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 1), XoObjectGone);
}

TEST_F(NoticeTest, SaysNothingAfterUnsubscribing)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 7), XoOk);
    EXPECT_EQ(XoNoticeUnsubscribeFromObject(notice, waiter), XoOk);
    EXPECT_NE(XoNoticeUnsubscribeFromObject(notice, waiter), XoOk);
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x10000), XoOk);
    EXPECT_EQ(NextBits(20), 0U);
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 8), XoOk) << "free again";
    EXPECT_EQ(NextBits(), 0x10000U) << "what nobody fetched is still there";
    EXPECT_EQ(XoNoticeUnsubscribeFromEvent(notice, 8), XoOk);
}

TEST_F(NoticeTest, DropWakesWaitersNowAndLater)
{
    auto waiting = std::async(std::launch::async,
                              [this]
                              {
                                  EventDesc event{};
                                  unsigned long received = 0;
                                  return XoNoticeGetEvent(notice, WzInfinite, 1, &event, &received);
                              });
    EXPECT_EQ(XoNoticeDropAndWake(notice), XoOk);
    EXPECT_EQ(waiting.get(), XoObjectGone);
    EventDesc event{};
    unsigned long received = 0;
    EXPECT_EQ(XoNoticeGetEvent(notice, WzInfinite, 1, &event, &received), XoObjectGone);
}

TEST_F(NoticeTest, TakesNoEventWhenNoneIsAskedFor)
{
    unsigned long received = 1;
    EXPECT_EQ(XoNoticeGetEvent(notice, 0, 0, nullptr, &received), XoTimedOut);
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 7), XoOk);
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x10000), XoOk);
    EXPECT_EQ(XoNoticeGetEvent(notice, 5000, 0, nullptr, &received), XoOk);
    EXPECT_EQ(received, 0U);
    EXPECT_EQ(NextBits(), 0x10000U);
}

TEST_F(NoticeTest, TellsTheEndsApart)
{
    EXPECT_EQ(XoNoticeSubscribeToObject(notice, setter, 1, 1), XoInvalidArgument);
    EXPECT_EQ(XoNoticeSetObjectEvent(waiter, 2), XoInvalidArgument);
    EXPECT_EQ(XoNoticeSetObjectEvent(setter, XoEventClosed), XoInvalidArgument);
    EXPECT_EQ(XoNoticeSetObjectEvent(0x123456, 2), XoObjectGone);
}

TEST_F(NoticeTest, WaitingEndTravelsInAMessage)
{
    Endpoint endpoint("travels");
    auto call =
        std::async(std::launch::async,
                   [this]
                   {
                       Client client("travels");
                       Letter request;
                       Letter response;
                       response.SetHandles(3);
                       EXPECT_EQ(Call(client.transport, request, response), XoOk);
                       EXPECT_EQ(response.Slot(0).handle, WzNoHandleInMessage);
                       EXPECT_EQ(response.Slot(2).handle, WzNoHandleInMessage);
                       const std::uint32_t received = response.Slot(1).handle;
                       EXPECT_EQ(XoNoticeSubscribeToObject(notice, received, 0x10001, 5), XoOk);
                       EXPECT_EQ(NextBits(), 0x10000U);
                       return received;
                   });
    Letter request;
    ASSERT_EQ(Receive(endpoint.transport, request), XoOk);
    Letter response;
    response.SetHandles(3);
    response.Slot(0).handle = WzNoHandleInMessage;
    response.Slot(1).handle = waiter;
    response.Slot(2).handle = WzNoHandleInMessage;
    ASSERT_EQ(Reply(endpoint.transport, response), XoOk);
    EXPECT_EQ(XoHandleClose(waiter), XoOk) << "the sender's own handle, still open";
    EXPECT_EQ(XoNoticeSetObjectEvent(setter, 0x10000), XoOk);
    const std::uint32_t received = call.get();
    EXPECT_EQ(XoHandleClose(setter), XoOk);
    EXPECT_EQ(NextBits(), XoEventClosed);
    EXPECT_EQ(XoHandleClose(received), XoOk);
}

}  // namespace
}  // namespace platform::tests
