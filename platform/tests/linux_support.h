#pragma once

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <tvo/platform_log.h>

#include "descriptor.h"
#include "frame.h"
#include "support.h"

namespace platform::tests {

/// The lines that the platform writes while this object lives.
class LogLines
{
public:
    LogLines()
    {
        Clear();
        TvoPlatformSetLog(
            [](TvoPlatformLogLevel, const char* text)
            {
                const std::lock_guard lock(Mutex());
                Lines().emplace_back(text);
            });
    }

    ~LogLines()
    {
        TvoPlatformSetLog(nullptr);
    }

    void Clear()
    {
        const std::lock_guard lock(Mutex());
        Lines().clear();
    }

    std::size_t Count(const std::string& part) const
    {
        const std::lock_guard lock(Mutex());
        std::size_t count = 0;
        for (const auto& line : Lines())
        {
            count += line.find(part) != std::string::npos;
        }
        return count;
    }

    std::size_t Count() const
    {
        return Count("");
    }

private:
    static std::mutex& Mutex()
    {
        static std::mutex mutex;
        return mutex;
    }

    static std::vector<std::string>& Lines()
    {
        static std::vector<std::string> lines;
        return lines;
    }
};

inline std::size_t CountDescriptors()
{
    std::size_t count = 0;
    DIR* directory = ::opendir("/proc/self/fd");
    while (::readdir(directory) != nullptr)
    {
        ++count;
    }
    ::closedir(directory);
    return count;
}

/// Tests that end with as many open descriptors as they began with.
class LinuxTest : public testing::Test
{
protected:
    LinuxTest()
    {
        // The folder's descriptors stay open from the first use on.
        XoHandleClose(ServiceLocatorConnect("nobody"));
        std::uint32_t handle = 0;
        std::uint32_t riid = 0;
        XoCmConnect("nobody", "nothing", 0, &handle, &riid);
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

inline sockaddr_un AddressOf(const std::string& name)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = SocketPath(name);
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
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
        RawSocket raw;
        const sockaddr_un address = AddressOf(name);
        EXPECT_EQ(::connect(raw.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
                  0);
        return raw;
    }

    static RawSocket ListeningAs(const std::string& name)
    {
        RawSocket raw;
        const sockaddr_un address = AddressOf(name);
        ::unlink(address.sun_path);
        EXPECT_EQ(::bind(raw.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
                  0);
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
        EXPECT_GE(::sendmsg(Get(), &message, MSG_NOSIGNAL), 0) << std::strerror(errno);
    }

    /// Waits for a packet.
    /// @returns an empty text when the other side has ended the connection
    std::string Read() const
    {
        std::string bytes(100'000, '\0');
        const ssize_t size = ::recv(Get(), bytes.data(), bytes.size(), 0);
        bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
        return bytes;
    }

    void Close()
    {
        m_socket.Reset();
    }

private:
    Descriptor m_socket;
};

/// A packet to begin with; each broken one changes something in it.
struct RawPacket
{
    explicit RawPacket(FrameKind kind = FrameKind::Request, std::size_t messageBytes = 80)
        : frame{FrameMagic, kind, 0, 0, 1, 0, static_cast<std::uint32_t>(messageBytes), 0},
          message(messageBytes, '\0')
    {
        SetSizeWord(static_cast<std::uint32_t>(messageBytes));
    }

    void SetSizeWord(std::uint32_t word)
    {
        std::memcpy(message.data() + offsetof(wz_message, size), &word, sizeof word);
    }

    std::string Bytes() const
    {
        return std::string(reinterpret_cast<const char*>(&frame), sizeof frame) + message + arena;
    }

    Frame frame;
    std::string message;
    std::string arena;
};

/// A forked process. Fork before the test starts threads.
class Child
{
public:
    /// @param work  its result is the exit status
    explicit Child(const std::function<int()>& work) : m_pid(::fork())
    {
        if (m_pid == 0)
        {
            ::_exit(work());
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

    pid_t Pid() const
    {
        return m_pid;
    }

private:
    pid_t m_pid;
};

/// Lets one process wait for another.
class Signal
{
public:
    Signal()
    {
        EXPECT_EQ(::pipe2(m_ends, O_CLOEXEC), 0);
    }

    ~Signal()
    {
        ::close(m_ends[0]);
        ::close(m_ends[1]);
    }

    void Give() const
    {
        EXPECT_EQ(::write(m_ends[1], "x", 1), 1);
    }

    void Await() const
    {
        char byte = 0;
        EXPECT_EQ(::read(m_ends[0], &byte, 1), 1);
    }

private:
    int m_ends[2] = {-1, -1};
};

}  // namespace platform::tests
