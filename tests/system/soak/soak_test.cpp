// How long: TVO_SOAK_SECONDS. What happens when: TVO_SOAK_SEED.

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>
#include <thread>

#include <QGuiApplication>
#include <gtest/gtest.h>

#include <support/picture.h>

#include "driver.h"
#include "process_figures.h"

namespace {

using namespace std::chrono_literals;
using soak::Driver;
using soak::ProcessFigures;
using std::chrono::nanoseconds;
using std::chrono::seconds;
using Clock = std::chrono::steady_clock;

constexpr int Generations = 3;
constexpr int Slices = 4;
/// Dialogs until Qt has filled its caches.
constexpr int WarmUp = 50;
constexpr std::size_t GrowthKiB = TVO_SOAK_GROWTH_KIB;
/// Qt draws in up to five pictures of the screen by turns.
constexpr std::size_t MostBuffersKiB = 5 * 4000 + GrowthKiB;
/// Of a thread in a second without callers.
constexpr nanoseconds IdleTime = 50ms;

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise)
{
    const char* text = std::getenv(name);
    return text != nullptr ? static_cast<std::uint32_t>(std::stoul(text)) : otherwise;
}

std::uint32_t Seed()
{
    const std::uint32_t seed = FromEnvironment("TVO_SOAK_SEED", std::random_device()());
    std::cout << "seed " << seed << std::endl;
    return seed;
}

class Soak : public testing::Test
{
protected:
    /// Watches one process of the application from its start on.
    void WatchGeneration(Clock::duration length)
    {
        const auto start = Clock::now();
        driver.Answer(WarmUp);
        const ProcessFigures first = FiguresAtRest();
        nanoseconds firstCost{};
        for (int slice = 1; slice <= Slices; ++slice)
        {
            const nanoseconds cost = CostOfDialogs(start + length * slice / Slices);
            firstCost = slice == 1 ? cost : firstCost;
            EXPECT_LT(cost, 2 * firstCost) << "dialogs take ever more time of the processor";
            ExpectNoMore(FiguresAtRest(), first);
        }
        ExpectIdleThreads();
    }

    /// Answers dialogs until then. @returns the application's time on a processor for each.
    nanoseconds CostOfDialogs(Clock::time_point end)
    {
        const int answered = driver.Answered();
        const nanoseconds before = Figures().Time();
        do
        {
            driver.Answer(10);
        } while (Clock::now() < end);
        return (Figures().Time() - before) / (driver.Answered() - answered);
    }

    ProcessFigures FiguresAtRest()
    {
        driver.Drain();
        const ProcessFigures figures = Figures();
        std::cout << driver.Answered() << " dialogs: " << figures << std::endl;
        return figures;
    }

    /// Connections of callers that have gone are closed soon, but not at once.
    void ExpectNoMore(ProcessFigures now, const ProcessFigures& first)
    {
        const auto deadline = Clock::now() + support::Patience;
        while (
            (now.descriptors != first.descriptors || now.threads.size() != first.threads.size()) &&
            Clock::now() < deadline)
        {
            now = Figures();
        }
        EXPECT_EQ(now.descriptors, first.descriptors);
        EXPECT_EQ(now.threads.size(), first.threads.size());
        EXPECT_LE(now.residentKiB, first.residentKiB + GrowthKiB);
        EXPECT_LE(now.bufferKiB, MostBuffersKiB);
    }

    void ExpectIdleThreads()
    {
        const ProcessFigures before = Figures();
        std::this_thread::sleep_for(1s);
        for (const auto& [thread, time] : Figures().threads)
        {
            const auto known = before.threads.find(thread);
            ASSERT_NE(known, before.threads.end()) << thread.second;
            EXPECT_LT(time - known->second, IdleTime) << thread.second;
        }
    }

    ProcessFigures Figures()
    {
        return soak::ReadFigures(driver.Application().Id());
    }

    Driver driver{Seed()};
};

TEST_F(Soak, EveryCallerGetsWhatWasPressedAndNothingGrows)
{
    const seconds length(FromEnvironment("TVO_SOAK_SECONDS", 120));
    for (int generation = 1; generation <= Generations; ++generation)
    {
        WatchGeneration(length / Generations);
        for (const int dialogs : {0, 1, 20})
        {
            driver.RestartApplication();
            driver.Answer(dialogs);
        }
    }
    driver.Drain();
    const auto& sum = driver.Sum();
    std::cout << driver.Answered() << " dialogs: " << sum.approved << " approved, " << sum.closed
              << " closed, " << sum.forNobody << " of callers dead by then; " << sum.killed
              << " callers killed, " << sum.failed << " left by the application" << std::endl;
    EXPECT_GE(sum.approved + sum.closed, TVO_SOAK_LEAST_A_SECOND * length.count());
}

}  // namespace

int main(int argc, char** argv)
{
    support::PrepareDrawing();
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
