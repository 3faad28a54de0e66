#pragma once

#include <malloc.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <xo/sleep.h>

#include "allocation_counter.h"
#include "linux_support.h"

namespace platform::tests {

/// A server in a process of its own, under a static name and with one published service. Like the
/// programs that serve for real it has a thread for requests, and one that lets clients in and
/// pauses after a service that it does not know. It has room for the largest requests.
class ServerProcess
{
public:
    static constexpr const char* Name = "victim";
    static constexpr const char* Entity = "vx.tests.Victim";
    static constexpr const char* Service = "offered";

    /// What a request's method tells it to do before it echoes the request.
    enum Wish : std::uint16_t
    {
        TellMemory = 0xA001,  ///< bytes in use, behind the header
        KillCaller,
        BeWithoutMemory,
    };

    /// How many milliseconds an innocent caller may have to wait at each step.
    static constexpr std::uint32_t Bound = 5000;

    /// @param spareDescriptors  how many more than at its start it may open; 0: as many as the test
    explicit ServerProcess(std::size_t spareDescriptors = 0)
        : m_child([&] { return Serve(spareDescriptors); })
    {
        m_ready.Await();
    }

    /// @returns the first number of the answer
    static std::uint64_t ExpectServed(WzTvoTransport& transport, Wish wish = {})
    {
        Letter request;
        request.Head().mid = wish;
        request.bytes[79] = 7;
        Letter response;
        EXPECT_EQ(Call(transport, request, response), XoOk);
        EXPECT_EQ(response.bytes[79], 7);
        std::uint64_t number = 0;
        std::memcpy(&number, response.bytes.data() + sizeof(wz_message), sizeof number);
        return number;
    }

    /// Connects both ways and calls.
    static void ExpectNewcomersServed()
    {
        const Connected made = Connect(Entity, Service, Bound);
        EXPECT_EQ(made.result, XoOk);
        Client accepted(made.handle);
        ExpectServed(accepted.transport);
        Client direct(Name);
        ExpectServed(direct.transport);
    }

    pid_t Pid() const
    {
        return m_child.Pid();
    }

private:
    int Serve(std::size_t spareDescriptors)
    {
        EXPECT_TRUE(PublishAs(Entity, Service));
        Endpoint endpoint(Name);
        std::thread([handle = endpoint.handle] { LetIn(handle); }).detach();
        if (spareDescriptors > 0)
        {
            const rlim_t limit = CountDescriptors() - 1 + spareDescriptors;
            const rlimit few{limit, limit};
            ::setrlimit(RLIMIT_NOFILE, &few);
        }
        m_ready.Give();
        for (Letter request(4096, MaxArenaBytes);;)
        {
            request.Head().size = 4096;
            request.SetHandles(MaxHandles);
            if (Receive(endpoint.transport, request) == XoOk)
            {
                Answer(endpoint.transport, request);
            }
        }
    }

    static void LetIn(std::uint32_t endpoint)
    {
        for (char client[XoCmNameSize], service[XoCmNameSize];;)
        {
            std::uint32_t handle = 0;
            if (XoCmListen(nullptr, 1000, client, service) != XoOk)
            {
                continue;
            }
            if (std::strcmp(service, Service) != 0)
            {
                XoSleep(600);
            }
            else if (XoCmAccept(client, service, 1, endpoint, &handle) != XoOk)
            {
                XoCmDrop(client, service);
            }
        }
    }

    static void Answer(WzTvoTransport& transport, Letter& request)
    {
        for (std::size_t i = 0; i < HandleCount(request.Head()); ++i)
        {
            XoHandleClose(request.Slot(i).handle);
        }
        request.Head().size = 80;
        const std::uint64_t bytes = ::mallinfo2().uordblks;
        switch (request.Head().mid)
        {
            case TellMemory:
                std::memcpy(request.bytes.data() + sizeof(wz_message), &bytes, sizeof bytes);
                break;
            case KillCaller:
                Kill(transport);
                break;
            case BeWithoutMemory:
                // Where the C++ library says what it dies of.
                ::dup2(RawSocket(::open("/dev/null", O_WRONLY)).Get(), STDERR_FILENO);
                RefuseMemory();
                break;
            default:
                break;
        }
        Reply(transport, request);
    }

    static void Kill(const WzTvoTransport& transport)
    {
        WzTvoPeer peer{};
        EXPECT_EQ(WzTvoTransportGetPeer(&transport, &peer), XoOk);
        const auto pid = static_cast<pid_t>(peer.pid);
        const RawSocket process(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)));
        ::kill(pid, SIGKILL);
        process.Await();
    }

    Signal m_ready;
    Child m_child;
};

}  // namespace platform::tests
