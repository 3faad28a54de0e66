#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <tvo/service_locator.h>
#include <tvo/task.h>
#include <wz/transport.h>
#include <xo/connection.h>
#include <xo/handle.h>
#include <xo/notice.h>

namespace platform::tests {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// A message with room for fields and handles, and an arena beside it.
struct Letter
{
    explicit Letter(std::size_t size = 80, std::size_t arenaRoom = 0) : arenaBytes(arenaRoom)
    {
        Head().size = static_cast<std::uint32_t>(size);
        arena = {arenaBytes.data(), arenaBytes.data(), arenaBytes.data() + arenaRoom};
    }
    Letter(const Letter&) = delete;
    Letter& operator=(const Letter&) = delete;

    wz_message& Head()
    {
        return *reinterpret_cast<wz_message*>(bytes.data());
    }

    wz_handle_slot& Slot(std::size_t index)
    {
        return reinterpret_cast<wz_handle_slot*>(bytes.data() + sizeof(wz_message))[index];
    }

    void SetHandles(std::size_t count)
    {
        Head().size = (Head().size & WzMessageSizeMask) |
                      static_cast<std::uint32_t>(count << WzMessageHandleCountShift);
    }

    /// Puts a text into the arena, as a sender does.
    void Write(const std::string& text)
    {
        arena.current = std::copy(text.begin(), text.end(), arena.start);
    }

    /// What the arena holds, as a receiver sees it.
    std::string Text() const
    {
        return {arena.start, arena.current};
    }

    alignas(16) std::array<unsigned char, 8192> bytes{};
    std::vector<unsigned char> arenaBytes;
    wz_arena arena{};
};

inline WzTvoTransport MakeTransport(std::uint32_t handle,
                                    std::uint32_t receiveTimeout = 5000,
                                    std::uint32_t callTimeout = 5000)
{
    WzTvoTransport transport;
    WzTvoTransport_Init(&transport, handle, nullptr, 0);
    WzTvoSetTransportTimeouts(&transport, receiveTimeout, callTimeout);
    return transport;
}

inline int Call(WzTvoTransport& transport, Letter& request, Letter& response)
{
    return transport.operations->call(
        &transport, &request.Head(), &request.arena, &response.Head(), &response.arena);
}

inline int Receive(WzTvoTransport& transport, Letter& request)
{
    return transport.operations->receive(&transport, &request.Head(), &request.arena);
}

inline int Reply(WzTvoTransport& transport, Letter& response)
{
    return transport.operations->reply(&transport, &response.Head(), &response.arena);
}

/// Waits for a condition that other threads or processes bring about.
inline bool Eventually(const std::function<bool()>& condition)
{
    const auto limit = Clock::now() + std::chrono::seconds(10);
    while (!condition())
    {
        if (Clock::now() > limit)
        {
            return false;
        }
        std::this_thread::yield();
    }
    return true;
}

struct Connected
{
    int result;
    std::uint32_t handle = 0;
    std::uint32_t riid = 0;
};

inline Connected Connect(const char* entity, const char* service, std::uint32_t timeout = 5000)
{
    Connected made{};
    made.result = XoCmConnect(entity, service, timeout, &made.handle, &made.riid);
    return made;
}

/// The next event of a notice, and the result.
inline std::pair<int, EventDesc> NextEvent(SNotice* notice, unsigned long timeout = 5000)
{
    EventDesc event{};
    unsigned long received = 0;
    const int result = XoNoticeGetEvent(notice, timeout, 1, &event, &received);
    EXPECT_EQ(received, result == XoOk ? 1U : 0U);
    return {result, event};
}

/// A connection that is closed at the end.
class Client
{
public:
    explicit Client(const char* name) : Client(ServiceLocatorConnect(name)) {}

    explicit Client(std::uint32_t connection) : handle(connection), transport(MakeTransport(handle))
    {}

    ~Client()
    {
        XoHandleClose(handle);
    }

    const std::uint32_t handle;
    WzTvoTransport transport;
};

/// An endpoint under a static name whose requests the test receives by itself.
class Endpoint
{
public:
    explicit Endpoint(const char* name)
        : handle(ServiceLocatorRegister(name, nullptr, 0, &identifier)),
          transport(MakeTransport(handle))
    {}

    ~Endpoint()
    {
        ServiceLocatorUnregister(identifier);
    }

    std::uint64_t identifier = 0;
    const std::uint32_t handle;
    WzTvoTransport transport;
};

/// An endpoint with a thread on it that echoes: message fields from byte 24 and the arena come
/// back.
class EchoServer : Endpoint
{
public:
    explicit EchoServer(const char* name, std::size_t arenaRoom = 65536)
        : Endpoint(name), m_thread([this, arenaRoom] { Loop(arenaRoom); })
    {}

    ~EchoServer()
    {
        ServiceLocatorUnregister(identifier);
        m_thread.join();
    }

private:
    void Loop(std::size_t arenaRoom)
    {
        transport.receiveTimeout = WzInfinite;
        Letter request(4096, arenaRoom);
        while (Receive(transport, request) == XoOk)
        {
            Reply(transport, request);
            request.Head().size = 4096;
        }
    }

    std::thread m_thread;
};

}  // namespace platform::tests
