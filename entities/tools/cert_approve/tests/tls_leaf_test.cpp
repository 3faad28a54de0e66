#include "tls_leaf.h"

#include <chrono>
#include <future>
#include <string>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <tools/cert_approve/failure.h>

#include "descriptor.h"

namespace {

using namespace std::chrono_literals;
using cert_approve::Descriptor;
using cert_approve::Endpoint;
using cert_approve::ExitStatus;
using cert_approve::Failure;
using cert_approve::FetchLeaf;

/// Listens on a port of loopback that the system chooses.
struct Listener
{
    Listener()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        socklen_t size = sizeof address;
        auto* const target = reinterpret_cast<sockaddr*>(&address);
        EXPECT_TRUE(::bind(socket.Get(), target, size) == 0 && ::listen(socket.Get(), 1) == 0 &&
                    ::getsockname(socket.Get(), target, &size) == 0);
        place = {"127.0.0.1", std::to_string(ntohs(address.sin_port))};
    }

    Descriptor socket{::socket(AF_INET, SOCK_STREAM, 0)};
    Endpoint place;
};

void ExpectUnreachable(const Endpoint& endpoint, std::chrono::milliseconds limit)
{
    try
    {
        FetchLeaf(endpoint, "", limit);
        ADD_FAILURE();
    }
    catch (const Failure& failure)
    {
        EXPECT_EQ(failure.Status(), ExitStatus::ServerUnreachable) << failure.what();
    }
}

}  // namespace

TEST(TlsLeaf, ReportsAServerThatSpeaksNoTls)
{
    const Listener listener;
    const auto server =
        std::async(std::launch::async,
                   [&listener]
                   {
                       const Descriptor client(::accept(listener.socket.Get(), nullptr, nullptr));
                       return ::send(client.Get(), "220 hello\r\n", 11, MSG_NOSIGNAL);
                   });
    ExpectUnreachable(listener.place, 20s);
}

TEST(TlsLeaf, GivesUpOnAServerThatSaysNothing)
{
    const Listener listener;
    ExpectUnreachable(listener.place, 50ms);
}
