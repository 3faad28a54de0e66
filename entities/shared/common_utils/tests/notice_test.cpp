#include <functional>

#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/result_codes.h>
#include <platform/testing/platform_double.h>
#include <shared/common_utils/app_utils/notice/notice_api.h>
#include <shared/common_utils/app_utils/notice/notice_factory.h>

namespace common_utils::app_utils::notice {
namespace {

using namespace std::chrono_literals;
using platform::testing::Call;

class NoticeTest : public testing::Test
{
protected:
    platform::testing::PlatformDouble platform;
    tvo::logger::testing::RecordingLogger logger;
    NoticeFactory factory{std::make_shared<NoticeApi>()};
    std::unique_ptr<INotice> notice = factory.CreateNotice();
    std::vector<EventDesc> events = std::vector<EventDesc>(2);
};

TEST_F(NoticeTest, ResultsOfTheSystemAreLoggedAndTranslated)
{
    // clang-format off
    const std::tuple<Call, std::string, std::function<int()>> operations[] = {
        {Call::NoticeSubscribeToObject, "SubscribeToObject",
         [&] { return notice->SubscribeToObject(5, 1, 9); }},
        {Call::NoticeGetEvent, "GetEvent", [&] { return notice->WaitForEvents(0ms, 1, events); }},
        {Call::NoticeUnsubscribeFromObject, "UnsubscribeFromObject",
         [&] { return notice->UnsubscribeFromObject(5); }},
        {Call::NoticeUnsubscribeFromEvent, "UnsubscribeFromEvent",
         [&] { return notice->UnsubscribeFromEvent(9); }},
        {Call::NoticeSetObjectEvent, "SetObjectEvent",
         [&] { return notice->SetObjectEvent(5, 0x10000); }},
        {Call::NoticeDropAndWake, "DropAndWake", [&] { return notice->DropAndWake(); }}};
    const std::pair<int, unsigned> results[] = {
        {XoTimedOut, 0x80000221}, {XoObjectGone, 0x8000004C}, {XoBroken, 0x8000004B}, {XoOk, 0}};
    // clang-format on
    for (const auto& [call, name, run] : operations)
    {
        for (const auto& [result, code] : results)
        {
            platform.Return(call, {.code = result});
            EXPECT_EQ(run(), static_cast<int>(code)) << name;
            EXPECT_EQ(
                logger.Lines().back().message,
                fmt::format("XoNotice{} result: 0x{:x}", name, static_cast<unsigned>(result)));
            EXPECT_TRUE(result == XoOk || call != Call::NoticeGetEvent || events.size() == 2);
        }
    }
    EXPECT_EQ(events.size(), 0U) << "as many as came";
    EXPECT_EQ(notice->DropAndWake(), plk::codes::Ok);
    EXPECT_EQ(notice->WaitEvents(1, events), plk::codes::NotFound) << "for good";
    platform.Fail(Call::NoticeCreate, XoNoResources);
    EXPECT_THROW(factory.CreateNotice(), zin::CheckFailedException);
}

TEST_F(NoticeTest, WaitFetchesAsManyEventsAsCame)
{
    for (const auto& [room, came] : {std::pair{3UL, 2UL}, {0UL, 0UL}, {1UL, 3UL}})
    {
        platform.Override<decltype(XoNoticeGetEvent)>(
            Call::NoticeGetEvent,
            [&, room = room, came = came](auto, auto, auto, EventDesc* first, unsigned long* count)
            {
                EXPECT_EQ(room == 0, first == nullptr);
                std::fill_n(first, room, EventDesc{7, 1, 0});
                *count = came;
                return XoOk;
            });
        EXPECT_EQ(notice->WaitForEvents(0ms, room, events), plk::codes::Ok);
        ASSERT_EQ(events.size(), came);
    }
    EXPECT_EQ(events[0].id, 7U);
    EXPECT_EQ(events[2].id, 0U);
    EXPECT_EQ(notice->WaitForEvents(-1ms, 1, events), plk::codes::InvalidArgument);
    EXPECT_EQ(platform.Count(Call::NoticeGetEvent), 3U);
}

}  // namespace
}  // namespace common_utils::app_utils::notice
