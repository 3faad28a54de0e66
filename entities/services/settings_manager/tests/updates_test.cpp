#include <component/logger/testing/recording_logger.h>

#include "front_support.h"

namespace settings_manager::service {
namespace {

using tvo::logger::LogLevel;

constexpr char Missing[] = "Not found = 0x8000004c";
constexpr std::size_t Bound = EventQueue::Bound;

class UpdatesTest : public FrontTest
{
protected:
    SubscriptionId SubscribeTo(const char* path)
    {
        return reg.AskAbout(path, Subscribe{.cid = m_cid}).sid;
    }

    int DoneWith(SubscriptionId sid)
    {
        return cbk.Ask(Done{.cid = m_cid, .sid = sid}).result;
    }

    int End(SubscriptionId sid)
    {
        return reg.Ask(Unsubscribe{.cid = m_cid, .sid = sid}).result;
    }

    std::uint64_t m_cid = Register();
};

Event EventOf(SubscriptionId sid, std::size_t number, unsigned char kinds = 2)
{
    return {sid, fmt::format("a/n{}/", number), kinds};
}

}  // namespace

TEST_F(UpdatesTest, ComeInOrderEachUntilItIsDone)
{
    const auto all = SubscribeTo("");
    const auto one = SubscribeTo("b");
    Put("a", Text("1"));
    Put("b", Text("1"));
    ism.AskAbout("a", Delete{});
    ism.AskAbout("b", SetAttrib{.attrib = 1});
    EXPECT_EQ(ism.AskAbout("b", GetAttrib{}).attrib, 1);

    EXPECT_EQ(DoneWith(all), codes::NotFound) << "not before it was handed out";
    const std::pair<const char*, std::uint64_t> rows[] = {
        {"a/ 7", all}, {"b/ 7", all}, {"b/ 7", one}, {"a/ 10", all}, {"b/ 4", all}, {"b/ 4", one}};
    for (const auto& [event, sid] : rows)
    {
        EXPECT_EQ(Next(m_cid), event);
        EXPECT_EQ(Next(m_cid), event) << "again, as it was not done";
        EXPECT_EQ(DoneWith(sid == all ? one : all), codes::NotFound);
        EXPECT_EQ(DoneWith(sid), 0);
        EXPECT_EQ(DoneWith(sid), codes::NotFound);
    }
    EXPECT_EQ(Next(m_cid), "parked");
}

TEST_F(UpdatesTest, AnswerAParkedWaitAtTheEndOfTheTurn)
{
    const auto sid = SubscribeTo("a");
    EXPECT_EQ(Next(m_cid), "parked");
    Put("b", Text("of no interest"));
    EXPECT_EQ(Late(), "nothing");
    Put("a", Text("1"));
    EXPECT_EQ(Late(), "a/ 7");
    EXPECT_EQ(DoneWith(sid), 0);
    EXPECT_EQ(Put("a", Text("1")), codes::Found);
    EXPECT_EQ(Next(m_cid), "parked");
    EXPECT_EQ(Late(), "nothing");
}

TEST_F(UpdatesTest, AreGivenUpAfterThreeDeliveriesThatHaveArrived)
{
    const tvo::logger::testing::RecordingLogger log;
    const auto sid = SubscribeTo("");
    Put("a", Text("1"));
    Put("b", Text("1"));
    for (int lost = 0; lost < 10; ++lost)
    {
        const std::uint64_t before = cbk.acknowledged;
        EXPECT_EQ(Next(m_cid), "a/ 7");
        cbk.acknowledged = before;
    }
    const auto warning =
        fmt::format("Process 7 has had update ${} of 'a/' 3 times and is not done with it", sid);
    for (int arrived = 0; arrived < EventQueue::MostDeliveries; ++arrived)
    {
        EXPECT_EQ(Next(m_cid), "a/ 7");
        EXPECT_FALSE(log.Contains(LogLevel::Warning, warning));
    }
    EXPECT_EQ(Next(m_cid), "b/ 7");
    EXPECT_TRUE(log.Contains(LogLevel::Warning, warning));
    EXPECT_EQ(DoneWith(sid), 0);
    EXPECT_EQ(Next(m_cid), "parked");
}

TEST_F(UpdatesTest, EndWithTheSubscription)
{
    const auto sid = SubscribeTo("");
    const auto other = SubscribeTo("b");
    Put("a", Text("1"));
    Put("b", Text("1"));
    EXPECT_EQ(Next(m_cid), "a/ 7");
    EXPECT_EQ(End(sid), 0);
    EXPECT_EQ(DoneWith(sid), 0) << "the observer was running";
    EXPECT_EQ(DoneWith(sid), codes::NotFound);
    EXPECT_EQ(Next(m_cid), "b/ 7");
    EXPECT_EQ(DoneWith(other), 0);
    EXPECT_EQ(Next(m_cid), "parked");
    EXPECT_EQ(End(sid), codes::NotFound);
}

TEST_F(UpdatesTest, EndWithTheContextAndLeaveItsWaitWithoutAnAnswer)
{
    SubscribeTo("");
    EXPECT_EQ(Next(m_cid), "parked");
    EXPECT_EQ(reg.Ask(UnregCallback{.cid = m_cid}).result, 0);
    Put("a", Text("1"));
    EXPECT_EQ(Late(), "nothing");
    EXPECT_EQ(Next(m_cid), Missing);
    EXPECT_EQ(reg.Ask(UnregCallback{.cid = m_cid}).result, codes::NotFound);

    const std::uint64_t second = Register();
    EXPECT_EQ(Next(second), "parked");
    reg.End();
    EXPECT_EQ(Next(second), Missing);
}

TEST_F(UpdatesTest, AreNobodyElsesBusiness)
{
    const auto sid = SubscribeTo("");
    FakeConnection stranger{loop, "WzISMReg", 9};
    EXPECT_EQ(stranger.Ask(UnregCallback{.cid = m_cid}).result, codes::NotFound);
    EXPECT_EQ(stranger.Ask(Unsubscribe{.cid = m_cid, .sid = sid}).result, codes::NotFound);
    EXPECT_EQ(stranger.AskAbout("a", Subscribe{.cid = m_cid}).result, codes::NotFound);
    stranger.End();
    EXPECT_EQ(Next(m_cid + 1), Missing);

    EXPECT_EQ(Next(m_cid), "parked");
    FakeConnection newer{loop, "WzISMCbk", 10};
    newer.Ask(Wait{.cid = m_cid});
    EXPECT_EQ(newer.outcome, Outcome::Defer);
    EXPECT_EQ(Late(), "Operation cancelled = 0x80000051") << "of two waits the newer one counts";
}

TEST(EventQueue, FoldsASubscriptionBeyondTheBoundOnItsOwnPath)
{
    EventQueue queue;
    queue.Push(EventOf(1, 0), "a/");
    queue.Deliver(1, 1);
    for (std::size_t i = 1; i < Bound - 1; ++i)
    {
        queue.Push(EventOf(1, i), "a/");
    }
    queue.Push(EventOf(2, 7, 1), "b/");
    ASSERT_EQ(queue.Size(), Bound);
    queue.Push(EventOf(1, 9999, 4), "a/");
    EXPECT_EQ(queue.Size(), 3U) << "what is out, what was folded, and the other subscription";
    EXPECT_EQ(queue.Deliver(1, 2).path, "a/n0/") << "what is out stays what it was";

    ASSERT_TRUE(queue.Done(1));
    const Event folded = queue.Deliver(1, 3);
    EXPECT_EQ(folded.path, "a/");
    EXPECT_EQ(folded.kinds, 6);
    for (std::size_t i = 0; i < Bound; ++i)
    {
        queue.Push(EventOf(1, i, 8), "a/");
    }
    EXPECT_EQ(queue.Deliver(1, 4).kinds, 6) << "nor does what was folded change once it is out";
    ASSERT_TRUE(queue.Done(1));
    EXPECT_EQ(queue.Deliver(1, 5).path, "a/n7/") << "of subscription 2";
}

TEST(EventQueue, NeverGrowsByMoreThanOneEventASubscription)
{
    EventQueue queue;
    for (std::size_t i = 0; i < Bound; ++i)
    {
        queue.Push(EventOf(1, i), "a/");
    }
    for (std::size_t i = 0; i < 100'000; ++i)
    {
        queue.Push(EventOf(2 + i % 5, i), "b/");
    }
    EXPECT_EQ(queue.Size(), Bound + 5);
    queue.Push(EventOf(1, 1), "a/");
    EXPECT_EQ(queue.Size(), 6U);
    queue.Deliver(1, 1);
    queue.Push(EventOf(1, 5), "a/");
    queue.Purge(1);
    EXPECT_EQ(queue.Size(), 5U);
    EXPECT_EQ(queue.Deliver(1, 2).path, "b/");
}

}  // namespace settings_manager::service
