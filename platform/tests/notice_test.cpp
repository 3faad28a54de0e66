#include <future>

#include <gtest/gtest.h>

#include "support.h"

namespace platform::tests {
namespace {

/// An event object and a notice that waits for it.
class NoticeTest : public testing::Test
{
protected:
    NoticeTest()
    {
        EXPECT_EQ(XoEventCreate(&setter, &waiter), XoOk);
        EXPECT_EQ(XoNoticeCreate(&notice), XoOk);
    }

    ~NoticeTest() override
    {
        XoNoticeRelease(notice);
        XoHandleClose(setter);
        XoHandleClose(waiter);
    }

    /// Bits of the next event, or 0 when none comes in time.
    std::uint32_t NextBits(unsigned long timeout = 5000)
    {
        const auto [result, event] = NextEvent(notice, timeout);
        EXPECT_TRUE(result == XoOk || result == XoTimedOut) << std::hex << result;
        return event.events;
    }

    std::uint32_t setter = 0;
    std::uint32_t waiter = 0;
    SNotice* notice = nullptr;
};

TEST_F(NoticeTest, ReportsJoinedBitsWithinTheMask)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 42), XoOk);
    EXPECT_NE(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 43), XoOk) << "one an object";
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x30000), XoOk);
    const auto event = NextEvent(notice).second;
    EXPECT_EQ(event.id, 42U);
    EXPECT_EQ(event.events, 0x10000U);
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x20000), XoOk);
    EXPECT_EQ(NextBits(20), 0U) << "outside the mask";
}

TEST_F(NoticeTest, LosesNoBitWhenNobodyReads)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, ~0U, 1), XoOk);
    for (unsigned bit = 1; bit < 32; ++bit)
    {
        for (int i = 0; i < 100; ++i)
        {
            ASSERT_EQ(XoNoticeSetObjectEvent(setter, 1U << bit), XoOk);
        }
    }
    EXPECT_EQ(NextBits(), 0xFFFFFFFEU);
    EXPECT_EQ(NextBits(0), 0U);
}

TEST_F(NoticeTest, ReportsTheEndOnceTogetherWithWhatCameBefore)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 1), XoOk);
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x10000), XoOk);
    ASSERT_EQ(XoHandleClose(setter), XoOk);
    EXPECT_EQ(NextBits(), 0x10001U);
    EXPECT_EQ(NextBits(20), 0U);
}

TEST_F(NoticeTest, ReportsTheEndWhenItsOwnHandleIsClosed)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 1), XoOk);
    auto waiting = std::async(std::launch::async, [this] { return NextBits(); });
    ASSERT_EQ(XoHandleClose(waiter), XoOk);
    EXPECT_EQ(waiting.get(), XoEventClosed);
    EXPECT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 1), XoObjectGone);
}

TEST_F(NoticeTest, SaysNothingAfterUnsubscribing)
{
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 7), XoOk);
    EXPECT_EQ(XoNoticeUnsubscribeFromObject(notice, waiter), XoOk);
    EXPECT_NE(XoNoticeUnsubscribeFromObject(notice, waiter), XoOk);
    ASSERT_EQ(XoNoticeSetObjectEvent(setter, 0x10000), XoOk);
    EXPECT_EQ(NextBits(20), 0U);
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, waiter, 0x10001, 8), XoOk) << "free again";
    EXPECT_EQ(NextBits(), 0x10000U) << "what nobody fetched is still there";
    EXPECT_EQ(XoNoticeUnsubscribeFromEvent(notice, 8), XoOk);
}

TEST_F(NoticeTest, DropWakesWaitersNowAndLater)
{
    const auto wait = [this]
    {
        return NextEvent(notice, WzInfinite).first;
    };
    auto waiting = std::async(std::launch::async, wait);
    EXPECT_EQ(XoNoticeDropAndWake(notice), XoOk);
    EXPECT_EQ(waiting.get(), XoObjectGone);
    EXPECT_EQ(wait(), XoObjectGone);
}

TEST_F(NoticeTest, WaitingEndTravelsInAMessage)
{
    Endpoint endpoint("travels");
    Client client("travels");
    Letter received;
    received.SetHandles(3);
    auto call = std::async(std::launch::async,
                           [&]
                           {
                               Letter request;
                               return Call(client.transport, request, received);
                           });
    Letter request;
    ASSERT_EQ(Receive(endpoint.transport, request), XoOk);
    Letter response;
    response.SetHandles(3);
    response.Slot(0).handle = WzNoHandleInMessage;
    response.Slot(1).handle = waiter;
    response.Slot(2).handle = WzNoHandleInMessage;
    ASSERT_EQ(Reply(endpoint.transport, response), XoOk);
    EXPECT_EQ(call.get(), XoOk);
    EXPECT_EQ(received.Slot(0).handle, WzNoHandleInMessage);
    EXPECT_EQ(received.Slot(2).handle, WzNoHandleInMessage);
    const std::uint32_t other = received.Slot(1).handle;
    EXPECT_EQ(XoHandleClose(waiter), XoOk) << "the sender's own handle, still open";
    EXPECT_EQ(XoNoticeSubscribeToObject(notice, other, 0x10001, 5), XoOk);
    EXPECT_EQ(XoNoticeSetObjectEvent(setter, 0x10000), XoOk);
    EXPECT_EQ(NextBits(), 0x10000U);
    EXPECT_EQ(XoHandleClose(setter), XoOk);
    EXPECT_EQ(NextBits(), XoEventClosed);
    EXPECT_EQ(XoHandleClose(other), XoOk);
}

}  // namespace
}  // namespace platform::tests
