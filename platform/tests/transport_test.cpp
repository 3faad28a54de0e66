#include <atomic>
#include <cstring>
#include <future>

#include <gtest/gtest.h>

#include "allocation_counter.h"
#include "support.h"

namespace platform::tests {
namespace {

/// One call in a thread of its own.
std::future<int> CallLater(WzTvoTransport transport, Letter& request, Letter& response)
{
    return std::async(std::launch::async,
                      [=, &request, &response]() mutable
                      { return Call(transport, request, response); });
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
    WzTvoPeer peer{};
    auto call = CallLater(client.transport, request, response);
    for (int i = 0; i < 3; ++i)
    {
        Letter received;
        ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
        received.bytes[25] = static_cast<unsigned char>(i);
        ASSERT_EQ(WzTvoTransportGetPeer(&endpoint.transport, &peer), XoOk);
        EXPECT_EQ(peer.acknowledgedSequence, 0U) << "no reply has reached the caller";
        ASSERT_EQ(Reply(endpoint.transport, received), XoOk);
    }
    EXPECT_EQ(call.get(), XoOk);
    EXPECT_EQ(response.bytes[24], 3);
    EXPECT_EQ(response.bytes[25], 2);

    auto next = CallLater(client.transport, request, response);
    Letter received;
    ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
    ASSERT_EQ(WzTvoTransportGetPeer(&endpoint.transport, &peer), XoOk);
    EXPECT_EQ(peer.acknowledgedSequence, 3U);
    EXPECT_EQ(peer.pid, static_cast<std::uint32_t>(::getpid()));
    EXPECT_EQ(Reply(endpoint.transport, received), XoOk);
    EXPECT_EQ(next.get(), XoOk);
}

TEST(Transport, ThreadsOnOneConnectionQueue)
{
    EchoServer server("queue");
    Client client("queue");
    const auto callOften = [&](unsigned char number)
    {
        WzTvoTransport own = client.transport;
        for (unsigned char i = 0; i < 50; ++i)
        {
            Letter request;
            request.bytes[24] = number;
            request.bytes[25] = i;
            Letter response;
            EXPECT_EQ(Call(own, request, response), XoOk);
            EXPECT_EQ(response.bytes[24], number);
            EXPECT_EQ(response.bytes[25], i);
        }
    };
    std::vector<std::future<void>> threads;
    for (unsigned char number = 0; number < 4; ++number)
    {
        threads.push_back(std::async(std::launch::async, callOften, number));
    }
}

TEST(Transport, ClosingTheConnectionFreesItsCallersAtOnce)
{
    Endpoint endpoint("close-client");
    Client client("close-client");
    client.transport.callTimeout = WzInfinite;
    Letter request;
    Letter responses[2];
    auto calling = CallLater(client.transport, request, responses[0]);
    Letter received;
    ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
    auto queued = CallLater(client.transport, request, responses[1]);
    EXPECT_EQ(XoHandleClose(client.handle), XoOk);
    for (auto* call : {&calling, &queued})
    {
        ASSERT_EQ(call->wait_for(std::chrono::seconds(1)), std::future_status::ready);
        EXPECT_EQ(call->get(), XoObjectGone);
    }
    EXPECT_EQ(Call(client.transport, request, responses[0]), XoObjectGone);
    EXPECT_EQ(XoHandleClose(client.handle), XoObjectGone);
}

TEST(Transport, ClosingTheEndpointFreesReceiversAndCallers)
{
    Endpoint endpoint("close-server");
    Client client("close-server");
    Letter request;
    Letter response;
    auto calling = CallLater(client.transport, request, response);
    Letter received;
    ASSERT_EQ(Receive(endpoint.transport, received), XoOk);
    endpoint.transport.receiveTimeout = WzInfinite;
    auto receiving =
        std::async(std::launch::async, [&] { return Receive(endpoint.transport, received); });
    ServiceLocatorUnregister(endpoint.identifier);
    EXPECT_EQ(receiving.get(), XoObjectGone);
    EXPECT_EQ(calling.get(), XoObjectGone);
    EXPECT_EQ(ServiceLocatorConnect("close-server"), XoInvalidHandle);
}

/// Neither by the caller nor by the server.
TEST(Transport, AllocatesNothingPerMessage)
{
    EchoServer server("allocations");
    Client client("allocations");
    Letter request(80, 65536);
    request.arena.current = request.arena.end;
    Letter response(80, 65536);
    std::size_t before = 0;
    for (int round = 0; round < 20; ++round)
    {
        // The first round makes the threads' buffers and the connection.
        before = round == 1 ? Allocations() : before;
        ASSERT_EQ(Call(client.transport, request, response), XoOk);
    }
    EXPECT_EQ(Allocations(), before);
}

}  // namespace
}  // namespace platform::tests
