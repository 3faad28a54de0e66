// Callers that keep to no rules, at the whole application.

#include <algorithm>
#include <csignal>
#include <cstring>
#include <list>
#include <thread>

#include <linux/input-event-codes.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "approval_fixture.h"

namespace {

using Clock = std::chrono::steady_clock;

/// A packet with this behind its message's header; what is over whole words is the arena.
std::string Packet(std::uint32_t kind, std::uint32_t iidAndMid, const std::string& fieldsAndArena)
{
    const std::uint32_t arena = fieldsAndArena.size() % 8;
    const std::uint32_t size = 24 + std::uint32_t(fieldsAndArena.size()) - arena;
    const std::uint32_t words[] = {
        0x014F5654, kind, 1, 0, 0, 0, size, arena, iidAndMid, size, 0, 0, 0, 0};
    return std::string(reinterpret_cast<const char*>(words), sizeof(words)) + fieldsAndArena;
}

/// A socket whose owner keeps to no rules.
struct RawClient
{
    explicit RawClient(const std::filesystem::path& path,
                       const std::string& words = {},
                       std::chrono::seconds patience = support::Patience)
    {
        const timeval limit{patience.count(), 0};
        setsockopt(file, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof(limit));
        sockaddr_un address{AF_UNIX, {}};
        path.string().copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(connect(file, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
        EXPECT_TRUE(words.empty() || send(file, words.data(), words.size(), MSG_NOSIGNAL) > 0);
    }

    ~RawClient()
    {
        close(file);
    }

    RawClient(const RawClient&) = delete;

    /// Whether the service says something before it ends the connection.
    [[nodiscard]] bool IsAnswered() const
    {
        char byte = 0;
        return recv(file, &byte, sizeof(byte), 0) > 0;
    }

    const int file = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
};

class HostileCallers : public ApprovalFixture
{
protected:
    /// How many of these the application has: "fd" or "task".
    std::size_t Count(const std::string& what)
    {
        const auto folder = "/proc/" + std::to_string(terminal.Approver().Id()) + "/" + what;
        const std::filesystem::directory_iterator all(folder);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    void ExpectServed(const std::string& name, std::uint32_t key, const std::string& verdict)
    {
        const auto start = Clock::now();
        const Caller caller = AskAndWait(name);
        EXPECT_LT(Clock::now() - start, std::chrono::seconds(10));
        display.PressKey(key);
        EXPECT_GE(caller->ExitStatus(), 0);
        EXPECT_EQ(caller->Output(), verdict);
    }

    const std::filesystem::path direct = terminal.Folder() / "connections/cert_approver_id.sock";
    const std::filesystem::path asking = terminal.Folder() / "servers/vx.vdi.CertApprover.sock";
};

TEST_F(HostileCallers, AllAtOnceHoldNobodyUp)
{
    ExpectServed("first.example", KEY_ENTER, "approve\n");
    const std::size_t descriptors = Count("fd");
    const std::size_t threads = Count("task");
    const std::size_t logSize = terminal.Approver().Errors().size();
    {
        const Caller deaf = AskAndWait("deaf.example");
        kill(deaf->Id(), SIGSTOP);
        display.PressKey(KEY_ESC);
        const std::string unknown = Packet(3, 0, std::string("\3\0\0\0\2\0\0\0", 8) + "badme");
        std::list<RawClient> crowd;
        for (int i = 0; i < 200; ++i)
        {
            crowd.emplace_back(direct);
            crowd.emplace_back(asking);
            crowd.emplace_back(asking, unknown);
        }
        const std::jthread offender(
            [this](const std::stop_token& stop)
            {
                for (int i = 0; !stop.stop_requested(); ++i)
                {
                    const auto& path = i % 2 == 0 ? direct : asking;
                    EXPECT_FALSE(RawClient(path, std::string(1U << i % 12, '\xA5')).IsAnswered());
                    const RawClient dropped(path);
                }
            });
        ExpectServed("innocent.example", KEY_ENTER, "approve\n");
        ExpectServed("second.example", KEY_ESC, "close\n");
    }
    ExpectServed("last.example", KEY_ESC, "close\n");
    const auto deadline = Clock::now() + support::Patience;
    while (Count("fd") > descriptors && Clock::now() < deadline)
    {}
    // Qt gives up some of what it had.
    EXPECT_LE(Count("fd"), descriptors);
    EXPECT_LE(Count("task"), threads);
    const std::string log = terminal.Approver().Errors().substr(logSize);
    EXPECT_LE(std::count(log.begin(), log.end(), '\n'), 2) << log;
}

/// Sound packets that break the interface end the dispatching; later callers wait until the end.
TEST_F(HostileCallers, ThreeRequestsEndTheService)
{
    const std::string sound(56, '\0');
    const std::string badMode = std::string(48, '\0') + "\2" + std::string(7, '\0');
    for (const std::string& request :
         {Packet(1, 1, badMode), Packet(1, 2, sound), Packet(1, 1 | 2 << 16, sound)})
    {
        terminal.StartApprover();
        EXPECT_TRUE(RawClient(direct, request).IsAnswered());
        // Long enough for a dialog to come up.
        const RawClient next(direct, Packet(1, 1 | 1 << 16, sound), std::chrono::seconds(1));
        EXPECT_FALSE(next.IsAnswered());
        EXPECT_TRUE(display.Showings() == 0 && terminal.Approver().Runs());
    }
}

TEST_F(HostileCallers, AnotherUserFindsNoService)
{
    const auto exe = "/proc/" + std::to_string(terminal.Approver().Id()) + "/exe";
    const auto program = std::filesystem::read_symlink(exe).replace_filename("cert_approve");
    support::Process other({"setpriv",
                            {"--reuid=65534", "--regid=65534", "--clear-groups", program, "-"},
                            {{"TVO_RUNTIME_DIR", terminal.Folder()}},
                            MakeCertificate().Pem()});
    const int status = other.ExitStatus();
    if (geteuid() != 0 || status > 100)
    {
        GTEST_SKIP() << "only root runs programs as another user: " << other.Errors();
    }
    EXPECT_EQ(status, 4);
    EXPECT_EQ(other.Output(), "");
}

}  // namespace
