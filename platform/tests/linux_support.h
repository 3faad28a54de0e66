#pragma once

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <shared/ipc_utils/publish.h>

#include "descriptor.h"
#include "frame.h"
#include "support.h"

namespace platform::tests {

/// What the platform writes while the function runs, in this process and in those that it forks.
inline std::string LogOf(const std::function<void()>& function)
{
    testing::internal::CaptureStderr();
    function();
    return testing::internal::GetCapturedStderr();
}

inline std::size_t CountDescriptors(const std::string& process = "self")
{
    const std::filesystem::directory_iterator entries("/proc/" + process + "/fd");
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

/// Tests that end with as many open descriptors as they began with.
class LinuxTest : public testing::Test
{
protected:
    LinuxTest()
    {
        // The folder's descriptors stay open from the first use on.
        XoHandleClose(ServiceLocatorConnect("nobody"));
        Connect("nobody", "nothing", 0);
        m_before = CountDescriptors();
    }

    ~LinuxTest() override
    {
        EXPECT_EQ(CountDescriptors(), m_before) << "descriptors";
    }

private:
    std::size_t m_before = 0;
};

inline std::string SocketPath(const std::string& name)
{
    return std::string(std::getenv("TVO_RUNTIME_DIR")) + "/" + name + ".sock";
}

/// A socket whose owner keeps to no rules.
class RawSocket
{
public:
    RawSocket() : m_socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0)) {}
    explicit RawSocket(int socket) : m_socket(socket) {}

    /// @param name  "connections/NAME" or "servers/NAME"
    static RawSocket ConnectedTo(const std::string& name)
    {
        return Made(name, &::connect);
    }

    static RawSocket ListeningAs(const std::string& name)
    {
        ::unlink(SocketPath(name).c_str());
        RawSocket raw = Made(name, &::bind);
        EXPECT_EQ(::listen(raw.Get(), 5), 0);
        return raw;
    }

    RawSocket Accept() const
    {
        return RawSocket(::accept4(Get(), nullptr, nullptr, SOCK_CLOEXEC));
    }

    int Get() const
    {
        return m_socket.Get();
    }

    void Send(const std::string& bytes, const std::vector<int>& descriptors = {}) const
    {
        EXPECT_TRUE(TrySend(bytes, descriptors)) << std::strerror(errno);
    }

    bool TrySend(const std::string& bytes, const std::vector<int>& descriptors = {}) const
    {
        iovec data{const_cast<char*>(bytes.data()), bytes.size()};
        alignas(cmsghdr) std::array<char, CMSG_SPACE(64 * sizeof(int))> control{};
        msghdr message{};
        message.msg_iov = &data;
        message.msg_iovlen = 1;
        if (!descriptors.empty())
        {
            const std::size_t size = descriptors.size() * sizeof(int);
            message.msg_control = control.data();
            message.msg_controllen = CMSG_SPACE(size);
            cmsghdr* rights = CMSG_FIRSTHDR(&message);
            rights->cmsg_level = SOL_SOCKET;
            rights->cmsg_type = SCM_RIGHTS;
            rights->cmsg_len = CMSG_LEN(size);
            std::memcpy(CMSG_DATA(rights), descriptors.data(), size);
        }
        return ::sendmsg(Get(), &message, MSG_NOSIGNAL) >= 0;
    }

    /// Whether there is a packet, the end, or the next client of a listening socket.
    bool IsReady(int timeout = 0) const
    {
        pollfd state{Get(), POLLIN, 0};
        return ::poll(&state, 1, timeout) == 1;
    }

    void Await() const
    {
        EXPECT_TRUE(IsReady(15'000)) << "nothing comes";
    }

    /// Waits for a packet.
    /// @returns an empty text when the other side has ended the connection
    std::string Read() const
    {
        Await();
        std::string bytes(100'000, '\0');
        const ssize_t size = ::recv(Get(), bytes.data(), bytes.size(), MSG_DONTWAIT);
        bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
        return bytes;
    }

    void Close()
    {
        m_socket.Reset();
    }

private:
    using Operation = int (*)(int, const sockaddr*, socklen_t);

    static RawSocket Made(const std::string& name, Operation operation)
    {
        RawSocket raw;
        sockaddr_un address{AF_UNIX, {}};
        SocketPath(name).copy(address.sun_path, sizeof address.sun_path - 1);
        const auto* generic = reinterpret_cast<const sockaddr*>(&address);
        EXPECT_EQ(operation(raw.Get(), generic, sizeof address), 0) << std::strerror(errno);
        return raw;
    }

    Descriptor m_socket;
};

/// A packet, sound unless told otherwise. Its message is zero but for what is said here.
struct Packet
{
    FrameKind kind = FrameKind::Request;
    std::uint32_t messageBytes = 80;
    std::optional<std::uint32_t> sizeWord = {};  ///< that of the message, without handles
    std::uint32_t handles = 0;
    std::uint8_t mask = 0;
    std::uint16_t flags = 0;
    std::uint64_t sequence = 1;
    std::uint64_t acknowledged = 0;
    std::uint16_t mid = 0;
    std::array<std::uint32_t, 2> fields = {};  ///< the last ones of the message
    std::string arena = {};
    std::optional<std::uint32_t> arenaBytes = {};  ///< that of the arena
    std::uint32_t magic = FrameMagic;

    operator std::string() const  // NOLINT(google-explicit-constructor): it is what is sent
    {
        const auto arenaSize = static_cast<std::uint32_t>(arena.size());
        const Frame frame{magic,
                          kind,
                          mask,
                          flags,
                          sequence,
                          acknowledged,
                          messageBytes,
                          arenaBytes.value_or(arenaSize)};
        std::string message(messageBytes, '\0');
        const wz_message header{
            0, mid, sizeWord.value_or(messageBytes) | handles << WzMessageHandleCountShift, {}};
        std::memcpy(message.data() + message.size() - sizeof fields, &fields, sizeof fields);
        std::memcpy(message.data(), &header, std::min(sizeof header, message.size()));
        return std::string(reinterpret_cast<const char*>(&frame), sizeof frame) + message + arena;
    }
};

/// A request for a connection.
/// @param extra  added to the size that is told of the service's name
inline std::string AskFor(const std::string& service,
                          const std::string& client = "raw",
                          std::uint32_t extra = 0)
{
    return Packet{.kind = FrameKind::Connect,
                  .messageBytes = 32,
                  .fields = {static_cast<std::uint32_t>(service.size()) + extra,
                             static_cast<std::uint32_t>(client.size())},
                  .arena = service + client};
}

/// The answer to one.
inline std::string Verdict(int result, std::uint32_t riid = 1)
{
    return Packet{.kind = FrameKind::Verdict,
                  .messageBytes = 32,
                  .fields = {static_cast<std::uint32_t>(result), riid}};
}

/// Takes the entity's name and publishes a service, once in a process. The interface is named like
/// the entity.
inline bool PublishAs(const char* entity, const char* service)
{
    const TvoComponentTree tree{entity, nullptr, 0, nullptr, 0};
    return TvoTaskSetComponentTree(TvoTaskGetSelf(), &tree) == XoOk &&
           shared::ipc_utils::TryPublishService(entity, service);
}

/// Tests of a process that publishes "offered" and lets clients in.
class PublishedTest : public LinuxTest
{
protected:
    static constexpr char Entity[] = "vx.tests.Published";
    static constexpr char Servers[] = "servers/vx.tests.Published";

    static void SetUpTestSuite()
    {
        static const bool published = PublishAs(Entity, "offered");
        ASSERT_TRUE(published);
    }

    int Listen(std::uint32_t timeout = 0)
    {
        return XoCmListen(nullptr, timeout, client, service);
    }

    char client[XoCmNameSize] = {};
    char service[XoCmNameSize] = {};
};

/// A forked process. Fork before the test starts threads.
class Child
{
public:
    /// @param work  its result is the exit status; not 0 either when something was not as expected
    explicit Child(const std::function<int()>& work)
    {
        const bool failedBefore = testing::Test::HasFailure();
        m_pid = ::fork();
        if (m_pid == 0)
        {
            const int status = work();
            const bool failed = testing::Test::HasFailure() && !failedBefore;
            ::_exit(status == 0 && failed ? 99 : status);
        }
    }

    ~Child()
    {
        if (m_pid > 0)
        {
            Kill();
        }
    }

    void Kill()
    {
        ::kill(m_pid, SIGKILL);
        Wait();
    }

    int Wait()
    {
        int status = 0;
        ::waitpid(m_pid, &status, 0);
        m_pid = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    bool HasEnded() const
    {
        siginfo_t info{};
        ::waitid(P_PID, static_cast<id_t>(m_pid), &info, WEXITED | WNOHANG | WNOWAIT);
        return info.si_pid != 0;
    }

    pid_t Pid() const
    {
        return m_pid;
    }

private:
    pid_t m_pid = -1;
};

/// Lets one process wait for another.
class Signal
{
public:
    void Give() const
    {
        EXPECT_EQ(::eventfd_write(m_event.Get(), 1), 0);
    }

    void Await() const
    {
        m_event.Await();
    }

    bool IsGiven() const
    {
        return m_event.IsReady();
    }

private:
    const RawSocket m_event{::eventfd(0, EFD_CLOEXEC)};
};

}  // namespace platform::tests
