#include <semaphore>

#include <gtest/gtest.h>

#include <shared/common_utils/app_utils/watchdog/application_watchdog.h>

namespace common_utils::app_utils::watchdog {
namespace {

/// A manager that answers a ping when the test lets it.
class SlowManager final : public ::app_manager::IApplicationWatchdog
{
public:
    int Ping(std::string_view) override
    {
        begun.release();
        answer.acquire();
        return -1;
    }

    std::counting_semaphore<> begun{0};
    std::counting_semaphore<> answer{0};
};

TEST(ApplicationWatchdog, WhatIsNotifiedDuringAPingMakesOneMore)
{
    const auto manager = std::make_shared<SlowManager>();
    auto watchdog = std::make_unique<ApplicationWatchdog>("app", manager);
    watchdog->Notify();
    ASSERT_TRUE(manager->begun.try_acquire_for(std::chrono::seconds(5)));
    for (int i = 0; i < 10; ++i)
    {
        watchdog->Notify();
    }
    manager->answer.release(12);
    EXPECT_TRUE(manager->begun.try_acquire_for(std::chrono::seconds(5)));
    EXPECT_FALSE(manager->begun.try_acquire_for(std::chrono::milliseconds(20)));
    watchdog.reset();
    EXPECT_FALSE(manager->begun.try_acquire()) << "the end makes no ping";
}

}  // namespace
}  // namespace common_utils::app_utils::watchdog
