// Clients of the manager that keep to no rules.

#include <list>
#include <thread>

#include <linux/input-event-codes.h>

#include <component/app_manager/tvo_ipc/service_names.h>
#include <support/process_figures.h>

#include "approval_fixture.h"
#include "raw_client.h"

namespace {

using app_manager::control::Command;
using app_manager::control::State;

class HostileClients : public ApprovalFixture
{
protected:
    HostileClients() : ApprovalFixture({.application = "commands = [\"show\", \"hide\"]\n"}) {}

    /// Asks for the service and sends pings, but reads no answer, until nobody takes them.
    void SendAndReadNothing() const
    {
        const std::string service = app_manager::service_names::Watchdog;
        std::string names("\0\0\0\0\3\0\0\0", 8);
        names[0] = static_cast<char>(service.size());
        const RawClient client(server, Packet(3, 0, names, service + "bad"));
        ASSERT_TRUE(client.IsAnswered());
        const std::string ping = Packet(
            1, app_manager::service_names::WatchdogRiid, std::string("\0\0\0\0\3\0\0\0", 8), "bad");
        while (send(client.file, ping.data(), ping.size(), MSG_NOSIGNAL) > 0)
        {}
    }

    const std::filesystem::path server =
        support::RuntimeFolder() / "servers/vx.vdi.AppManager.sock";
};

TEST_F(HostileClients, ChangeNothingForTheOthers)
{
    support::ManagerProcess& manager = terminal.Manager();
    const pid_t program = manager.Program().Id();
    const std::size_t descriptors = support::ReadFigures(program).descriptors;
    {
        std::list<RawClient> crowd;
        for (int i = 0; i < 1000; ++i)
        {
            crowd.emplace_back(server);
        }
        const std::jthread garbage(
            [this](const std::stop_token& stop)
            {
                for (unsigned i = 0; !stop.stop_requested(); ++i)
                {
                    EXPECT_FALSE(RawClient(server, std::string(1U << i % 12, '\xA5')).IsAnswered());
                }
            });
        const std::jthread deaf([this] { SendAndReadNothing(); });
        const pid_t former = terminal.Approver();
        const auto caller = AskAndWait("server.example");
        manager.Send("cert_approver", Command::Hide);
        EXPECT_TRUE(display.WaitForNoToplevel());
        manager.Send("cert_approver", Command::Show);
        EXPECT_TRUE(DialogShows("CN=server.example"));
        display.PressKey(KEY_ENTER);
        EXPECT_EQ(caller->ExitStatus(), 0);
        EXPECT_EQ(terminal.Approver(), former);
        // The new one's connections are among all these.
        terminal.RestartApprover();
    }
    EXPECT_EQ(manager.StatusOf("cert_approver").restarts, 1U);
    EXPECT_TRUE(
        support::Comes([&] { return support::ReadFigures(program).descriptors == descriptors; }))
        << support::ReadFigures(program) << ", before " << descriptors;
}

}  // namespace
