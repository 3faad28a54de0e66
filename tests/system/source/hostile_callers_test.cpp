// Callers that keep to no rules, at the whole application.

#include <algorithm>
#include <csignal>
#include <list>
#include <thread>

#include <linux/input-event-codes.h>
#include <unistd.h>

#include <support/process_figures.h>

#include "approval_fixture.h"
#include "raw_client.h"

namespace {

using Clock = std::chrono::steady_clock;

class HostileCallers : public ApprovalFixture
{
protected:
    void ExpectServed(const std::string& name, std::uint32_t key, const std::string& verdict)
    {
        const auto start = Clock::now();
        const Caller caller = AskAndWait(name);
        EXPECT_LT(Clock::now() - start, std::chrono::seconds(10));
        display.PressKey(key);
        EXPECT_GE(caller->ExitStatus(), 0);
        EXPECT_EQ(caller->Output(), verdict);
    }

    const std::filesystem::path direct =
        support::RuntimeFolder() / "connections/cert_approver_id.sock";
    const std::filesystem::path asking =
        support::RuntimeFolder() / "servers/vx.vdi.CertApprover.sock";
};

TEST_F(HostileCallers, AllAtOnceHoldNobodyUp)
{
    ExpectServed("first.example", KEY_ENTER, "approve\n");
    const pid_t approver = terminal.Approver();
    const auto before = support::ReadFigures(approver);
    const std::size_t logSize = terminal.Manager().Log().size();
    {
        const Caller deaf = AskAndWait("deaf.example");
        kill(deaf->Id(), SIGSTOP);
        display.PressKey(KEY_ESC);
        const std::string unknown = Packet(3, 0, std::string("\3\0\0\0\2\0\0\0", 8), "badme");
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
    // Qt gives up some of what it had.
    const auto isNotMore = [&]
    {
        const auto now = support::ReadFigures(approver);
        return now.descriptors <= before.descriptors && now.threads.size() <= before.threads.size();
    };
    EXPECT_TRUE(support::Comes(isNotMore)) << support::ReadFigures(approver);
    const std::string log = terminal.Manager().Log().substr(logSize);
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
        terminal.RestartApprover();
        const pid_t approver = terminal.Approver();
        EXPECT_TRUE(RawClient(direct, request).IsAnswered());
        // Long enough for a dialog to come up.
        const RawClient next(direct, Packet(1, 1 | 1 << 16, sound), std::chrono::seconds(1));
        EXPECT_FALSE(next.IsAnswered());
        EXPECT_TRUE(display.Showings() == 0 && terminal.Approver() == approver);
    }
}

TEST_F(HostileCallers, AnotherUserFindsNoService)
{
    const auto exe = "/proc/" + std::to_string(terminal.Approver()) + "/exe";
    const auto program = std::filesystem::read_symlink(exe).replace_filename("cert_approve");
    support::Process other({"setpriv",
                            {"--reuid=65534", "--regid=65534", "--clear-groups", program, "-"},
                            {},
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
