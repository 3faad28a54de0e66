#pragma once

#include <chrono>
#include <vector>

#include "contender.h"

namespace tvo::bench {

using Nanoseconds = std::chrono::duration<double, std::nano>;

/// Two contenders, measured in batches that follow each other closely, so that both meet the same
/// machine: what disturbs the one disturbs the other, and the median forgets the rest.
class Pair
{
public:
    /// Builds both, lets them run warm and finds how many operations fill a batch.
    explicit Pair(const Row& row);

    struct Times
    {
        Nanoseconds ours;  ///< an operation
        Nanoseconds peer;
    };

    /// Measures a batch of each, ours and the peer taking turns at being first.
    Times Measure();

    /// The medians of what was measured; the ratio is the median of the pairs' ratios.
    struct Result
    {
        Nanoseconds ours;
        Nanoseconds peer;
        double ratio;
    };

    Result Summary() const;

private:
    struct Side
    {
        std::unique_ptr<Contender> contender;
        int batch = 1;
    };

    static Side Prepare(const MakeContender& make, Nanoseconds batchTime);
    static Nanoseconds MeasureBatch(Side& side);

    Side m_ours;
    Side m_peer;
    std::vector<Times> m_times;
};

}  // namespace tvo::bench
