// How long: TVO_SOAK_SECONDS. What happens when: TVO_SOAK_SEED.

#include <chrono>
#include <iostream>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include <support/process_figures.h>

#include "driver.h"

namespace {

using namespace std::chrono_literals;
using std::chrono::nanoseconds;
using std::chrono::seconds;
using support::ProcessFigures;
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
        const auto isAsMuch = [&]
        {
            now = Figures();
            return now.descriptors == first.descriptors &&
                   now.threads.size() == first.threads.size();
        };
        EXPECT_TRUE(support::Comes(isAsMuch)) << now;
        EXPECT_LE(now.residentKiB, first.residentKiB + GrowthKiB);
        EXPECT_LE(now.bufferKiB, MostBuffersKiB);
    }

    void ExpectIdleThreads()
    {
        const ProcessFigures before = Figures();
        std::this_thread::sleep_for(1s);
        for (const auto& [id, thread] : Figures().threads)
        {
            EXPECT_LT(thread.time - before.threads.at(id).time, IdleTime) << thread.name;
        }
    }

    ProcessFigures Figures()
    {
        return support::ReadFigures(driver.Terminal().Approver());
    }

    const std::uint32_t seed = support::FromEnvironment("TVO_SOAK_SEED", std::random_device()());
    soak::Driver driver{seed};
};

TEST_F(Soak, EveryCallerGetsWhatWasPressedAndNothingGrows)
{
    std::cout << "seed " << seed << std::endl;
    const seconds length(support::FromEnvironment("TVO_SOAK_SECONDS", 120));
    for (int generation = 1; generation <= Generations; ++generation)
    {
        WatchGeneration(length / Generations);
        for (const int dialogs : {0, 1, 20})
        {
            driver.KillApplication();
            driver.Answer(dialogs);
        }
    }
    driver.Drain();
    const auto& sum = driver.Sum();
    std::cout << driver.Answered() << " dialogs: " << sum.approved << " approved, " << sum.closed
              << " closed, " << sum.forNobody << " of callers dead by then; " << sum.killed
              << " callers killed, " << sum.failed << " left by the application" << std::endl;
    EXPECT_EQ(driver.Terminal().Manager().End(), "");
    EXPECT_GE(sum.approved + sum.closed, TVO_SOAK_LEAST_A_SECOND * length.count());
}

}  // namespace
