#include <atomic>
#include <memory>
#include <thread>

#include <gtest/gtest.h>

#include <component/plk/semaphore.h>

TEST(Semaphore, CountsPosts)
{
    plk::Semaphore semaphore;
    semaphore.Post();
    semaphore.Post();
    semaphore.Wait();
    semaphore.Wait();

    std::atomic_bool isPosted = false;
    std::thread poster(
        [&]
        {
            isPosted = true;
            semaphore.Post();
        });
    semaphore.Wait();
    EXPECT_TRUE(isPosted) << "the first two posts were used up";
    poster.join();
}

TEST(Semaphore, MayBeDestroyedRightAfterTheWait)
{
    for (int i = 0; i < 2000; ++i)
    {
        auto semaphore = std::make_unique<plk::Semaphore>();
        std::thread poster([&target = *semaphore] { target.Post(); });
        semaphore->Wait();
        semaphore.reset();
        poster.join();
    }
}
