#include <csignal>

#include <xo/notice.h>

#include "simulated_terminal.h"

namespace app_manager::service {
namespace {

using control::State;
using Terminals = SimulatedTerminal;

TEST_F(Terminals, StartEachWhenTheOneBeforeIsReady)
{
    EXPECT_CALL(notifier, Ready()).Times(0);
    Configure({Service("s1"), Application("a1"), Application("a2")});
    loop.End("s1", {true, 1});
    loop.PassTo(milliseconds(500));
    EXPECT_EQ(loop.Done(), "0 s1 start, 500 s1 start");
    loop.served.insert("s1");
    EXPECT_CALL(notifier, Status(testing::_)).Times(testing::AnyNumber());
    EXPECT_CALL(notifier, Status("1 of 3 ready, not yet: a1, a2"));
    loop.PassTo(milliseconds(600));
    loop.End("s1", {true, 1});
    Of("a1").Stop(terminal.Now(), SupervisedChild::Afterwards::StayAway, "");
    loop.End("a1", {false, SIGTERM});
    EXPECT_EQ(loop.Done(), "600 a1 start, 600 a1 term, 600 a2 start") << "all had their turn";
    EXPECT_CALL(notifier, Ready());
    Ready("a2");
}

TEST_F(Terminals, CloseAnApplicationWhoseServiceHasEndedUntilThatIsBack)
{
    loop.served = {"s1", "s2"};
    Configure({Service("s1"), Service("s2"), Application("a1", {"s1"}), Application("a2", {"s2"})});
    Ready("a1");
    Ready("a2");
    loop.Done();
    loop.served.erase("s1");
    loop.End("s1", {false, SIGKILL});
    EXPECT_EQ(Of("a2").State(), State::Ready);
    EXPECT_EQ(terminal.Find("a1")->Commands()->Fetch(), -3);
    loop.End("a1", {true, 0});
    EXPECT_EQ(Of("a1").State(), State::Waiting);
    loop.PassTo(milliseconds(500));
    loop.served.insert("s1");
    loop.PassTo(milliseconds(600));
    EXPECT_EQ(loop.Done(), "500 s1 start, 600 a1 start");
    loop.End("s1", {false, SIGKILL});
    loop.PassTo(milliseconds(1700));
    loop.End("a1", {false, SIGTERM});
    EXPECT_EQ(loop.Done(), "600 a1 term, 1600 s1 start, 1700 a1 start") << "was not ready yet";
}

TEST_F(Terminals, StopOneAfterTheOtherTheLastOneFirst)
{
    loop.served = {"s1"};
    Configure({Service("s1"), Application("a1"), Application("a2"), Application("a3")});
    Ready("a1");
    Ready("a2");
    loop.End("a2", {true, 3});
    loop.Done();
    EXPECT_CALL(loop, Stop()).Times(0);
    terminal.Stop();
    terminal.Settle();
    EXPECT_EQ(Of("a2").State(), State::Closed) << "rested";
    EXPECT_EQ(Of("a1").State(), State::Ready);
    loop.End("a3", {false, SIGTERM});
    EXPECT_EQ(Of("a1").State(), State::Stopping);
    loop.End("a1", {true, 0});
    EXPECT_EQ(loop.Done(), "0 a3 term, 0 s1 term");
    terminal.Stop();
    EXPECT_EQ(loop.Done(), "0 s1 kill") << "told twice";
    EXPECT_CALL(loop, Stop());
    loop.End("s1", {false, SIGKILL});
}

TEST_F(Terminals, TouchOnlyWhatHasChangedInTheConfiguration)
{
    loop.served = {"same", "changed", "gone", "new"};
    Configure({Service("same"), Service("changed"), Service("gone"), Application("app")});
    Ready("app");
    loop.Done();
    auto changed = Service("changed");
    changed.arguments.push_back("more");
    auto app = Application("app", {"same"});
    app.limits.ping = milliseconds(7000);
    Configure({Service("same"), changed, Service("new"), app});
    Of("app").OnPing(terminal.Now());
    loop.End("changed", {true, 0});
    loop.End("gone", {true, 0});
    EXPECT_EQ(loop.Done(), "0 changed term, 0 gone term, 0 new start, 0 changed start");
    loop.PassTo(milliseconds(6999));
    EXPECT_EQ(Of("app").State(), State::Ready) << "by its new limit";
    Configure({Service("same"), changed, Service("new")});
    Configure({Service("same"), changed, Service("new"), app});
    EXPECT_NE(terminal.FindApplication("app", loop.processes.at("app").first), nullptr);
    EXPECT_EQ(loop.Done(), "") << "its former process is still closing";
    loop.End("app", {true, 0});
    EXPECT_EQ(loop.Done(), "6999 app start");
    Ready("app");
    Of("app").Stop(terminal.Now(), SupervisedChild::Afterwards::StayAway, "");
    app.arguments.push_back("more");
    Configure({Service("same"), changed, Service("new"), app});
    loop.End("app", {true, 0});
    EXPECT_EQ(Of("app").State(), State::Closed) << "a person has closed it";
}

TEST_F(Terminals, StartAgainWithoutWaitingForThoseBefore)
{
    Configure({Application("app")});
    Ready("app");
    Configure({Service("new"), Application("app")});
    loop.End("app", {false, SIGSEGV});
    loop.Done();
    loop.PassTo(milliseconds(500));
    EXPECT_EQ(loop.Done(), "500 app start") << "was ready once";
}

TEST_F(Terminals, KnowAnApplicationByItsOwnProcess)
{
    loop.served = {"service"};
    Configure({Service("service"), Application("app")});
    const std::uint32_t pid = loop.processes.at("app").first;
    EXPECT_EQ(terminal.FindApplication("app", pid), terminal.Find("app"));
    EXPECT_EQ(terminal.FindApplication("app", pid - 1), nullptr);
    EXPECT_EQ(terminal.FindApplication("service", pid - 1), nullptr);
    loop.End("app", {true, 0});
    EXPECT_EQ(terminal.FindApplication("app", pid), nullptr);
    EXPECT_EQ(terminal.FindApplication("app", 0), nullptr) << "a process of another namespace";
}

TEST(CommandSlot, AnnouncesUntilItIsFetchedAndLetsCloseStand)
{
    SNotice* notice = nullptr;
    ASSERT_EQ(XoNoticeCreate(&notice), XoOk);
    std::optional<CommandSlot> slot(std::in_place);
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, slot->UpdateHandle(), 0x10001, 1), XoOk);
    const auto announced = [notice]
    {
        EventDesc event{};
        unsigned long received = 0;
        return XoNoticeGetEvent(notice, 0, 1, &event, &received) == XoOk && event.events == 0x10000;
    };
    EXPECT_EQ(slot->Fetch(), std::nullopt);
    slot->Set(-2);
    EXPECT_TRUE(announced());
    slot->AnnounceAgain();
    EXPECT_TRUE(announced());
    EXPECT_EQ(slot->Fetch(), -2);
    slot->AnnounceAgain();
    EXPECT_FALSE(announced());
    slot->Set(-3);
    slot->Set(-2);
    EXPECT_EQ(slot->Fetch(), -3);
    slot.reset();
    XoNoticeRelease(notice);
}

TEST_F(Terminals, GiveEverybodyTheTimeInWhichTheManagerWasHeldUp)
{
    Configure({Application("app")});
    Ready("app");
    loop.PassTo(milliseconds(1500));
    loop.now = milliseconds(31'500);
    loop.PassTo(milliseconds(34'400));
    EXPECT_EQ(Of("app").State(), State::Ready);
    loop.PassTo(milliseconds(35'500));
    EXPECT_EQ(Of("app").State(), State::Stopping);
}

}  // namespace
}  // namespace app_manager::service
