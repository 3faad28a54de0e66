#include <memory>
#include <thread>

#include <gtest/gtest.h>

#include <component/plk/semaphore.h>

TEST(Semaphore, CountsPostsAndMayBeDestroyedRightAfterTheWait)
{
    for (int i = 0; i < 1000; ++i)
    {
        auto semaphore = std::make_unique<plk::Semaphore>();
        semaphore->Post();
        std::thread poster([&target = *semaphore] { target.Post(); });
        semaphore->Wait();
        semaphore->Wait();
        semaphore.reset();
        poster.join();
    }
}
