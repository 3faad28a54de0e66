#include "pair.h"

#include <algorithm>

namespace tvo::bench {
namespace {

using Clock = std::chrono::steady_clock;

Nanoseconds TimeOf(Contender& contender, int count)
{
    const auto begin = Clock::now();
    contender.Run(count);
    const auto end = Clock::now();
    contender.Rest();
    return end - begin;
}

template <typename Value>
Value Median(std::vector<Value> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace

Pair::Pair(const Row& row)
    : m_ours(Prepare(row.ours, row.batchTime)), m_peer(Prepare(row.peer, row.batchTime))
{}

Pair::Side Pair::Prepare(const MakeContender& make, Nanoseconds batchTime)
{
    Side side{make()};
    // What takes longer than a batch runs once a batch; the rest doubles until it fills one.
    while (TimeOf(*side.contender, side.batch) < batchTime)
    {
        side.batch *= 2;
    }
    return side;
}

Nanoseconds Pair::MeasureBatch(Side& side)
{
    return TimeOf(*side.contender, side.batch) / side.batch;
}

Pair::Times Pair::Measure()
{
    Times times{};
    if (m_times.size() % 2 == 0)
    {
        times.ours = MeasureBatch(m_ours);
        times.peer = MeasureBatch(m_peer);
    }
    else
    {
        times.peer = MeasureBatch(m_peer);
        times.ours = MeasureBatch(m_ours);
    }
    m_times.push_back(times);
    return times;
}

Pair::Result Pair::Summary() const
{
    std::vector<Nanoseconds> ours;
    std::vector<Nanoseconds> peer;
    std::vector<double> ratios;
    for (const Times& times : m_times)
    {
        ours.push_back(times.ours);
        peer.push_back(times.peer);
        ratios.push_back(times.ours / times.peer);
    }
    return {Median(ours), Median(peer), Median(ratios)};
}

}  // namespace tvo::bench
