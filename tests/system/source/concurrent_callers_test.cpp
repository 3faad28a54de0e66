#include <algorithm>
#include <filesystem>
#include <system_error>

#include <linux/input-event-codes.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "approval_fixture.h"

namespace {

using testing::MatchesRegex;

class ConcurrentCallers : public ApprovalFixture
{
protected:
    /// Answers the dialog that is up and expects the verdict at this caller.
    void Answer(support::Process& caller, std::uint32_t key, const std::string& verdict)
    {
        display.PressKey(key);
        EXPECT_EQ(caller.ExitStatus(), verdict == "approve\n" ? 0 : 1);
        EXPECT_EQ(caller.Output(), verdict);
    }
};

TEST_F(ConcurrentCallers, TheSecondIsAskedForAfterTheFirst)
{
    const auto first = AskAndWait("first.example");
    const auto second = AskBehind("second.example");
    EXPECT_TRUE(DialogShows("CN=first.example"));
    Answer(*first, KEY_ENTER, "approve\n");
    ASSERT_TRUE(DialogShows("CN=second.example"));
    EXPECT_TRUE(second->Runs());
    Answer(*second, KEY_ESC, "close\n");
}

TEST_F(ConcurrentCallers, TheNextIsServedAfterTheAnswerToOneThatWasKilled)
{
    const auto killed = AskAndWait("killed.example");
    const auto next = AskBehind("next.example");
    killed->Kill();
    EXPECT_TRUE(DialogShows("CN=killed.example"));
    display.PressKey(KEY_ENTER);
    ASSERT_TRUE(DialogShows("CN=next.example"));
    EXPECT_TRUE(next->Runs()) << "the answer to the killed caller went to the next one";
    Answer(*next, KEY_ESC, "close\n");
}

TEST_F(ConcurrentCallers, NobodyIsAskedForOneThatWasKilledWhileItWaited)
{
    const auto first = AskAndWait("first.example");
    const auto killed = AskBehind("killed.example");
    const auto last = AskBehind("last.example");
    killed->Kill();
    Answer(*first, KEY_ENTER, "approve\n");
    ASSERT_TRUE(DialogShows("CN=last.example"));
    EXPECT_EQ(display.Showings(), 2);
    Answer(*last, KEY_ENTER, "approve\n");
    EXPECT_TRUE(display.WaitForNoToplevel());
    EXPECT_EQ(display.Showings(), 2);
}

TEST_F(ConcurrentCallers, AllHearOfTheEndOfTheService)
{
    const auto shown = AskAndWait("shown.example");
    const auto waiting = AskBehind("waiting.example");
    terminal.Approver().Kill();
    for (support::Process* caller : {shown.get(), waiting.get()})
    {
        EXPECT_EQ(caller->ExitStatus(), 4);
        EXPECT_EQ(caller->Output(), "");
        EXPECT_THAT(caller->Errors(), MatchesRegex("cert_approve: [^\n]+\n"));
    }
}

class RawClient final
{
public:
    explicit RawClient(const std::filesystem::path& socketPath)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        socketPath.string().copy(address.sun_path, sizeof(address.sun_path) - 1);
        if (connect(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0)
        {
            throw std::system_error(errno, std::generic_category(), socketPath);
        }
    }

    ~RawClient()
    {
        close(m_socket);
    }

    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    void Send(const std::string& packet)
    {
        send(m_socket, packet.data(), packet.size(), MSG_NOSIGNAL);
    }

    /// Reads until the service closes the connection. False if it does not.
    bool IsDropped()
    {
        const timeval limit{support::Patience.count(), 0};
        setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof(limit));
        char byte = 0;
        ssize_t size = 1;
        while (size > 0)
        {
            size = recv(m_socket, &byte, sizeof(byte), 0);
        }
        return size == 0 || errno == ECONNRESET;
    }

private:
    int m_socket = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
};

std::filesystem::path FindSocket(const std::filesystem::path& folder)
{
    const std::filesystem::directory_iterator entries(folder);
    const auto found =
        std::find_if(begin(entries),
                     end(entries),
                     [](const auto& entry) { return entry.path().extension() == ".sock"; });
    return found == end(entries) ? "none" : found->path();
}

TEST_F(ConcurrentCallers, OneThatSendsGarbageLosesOnlyItsOwnConnection)
{
    const auto socketPath = FindSocket(terminal.Folder() / "servers");
    RawClient mute(socketPath);
    for (const std::size_t size : {1U, 31U, 32U, 33U, 4096U, 65536U})
    {
        RawClient client(socketPath);
        client.Send(std::string(size, '\xa5'));
        EXPECT_TRUE(client.IsDropped()) << size << " bytes";
    }
    const auto caller = AskAndWait("honest.example");
    Answer(*caller, KEY_ENTER, "approve\n");
}

}  // namespace
