#include "offence_filter.h"

#include <algorithm>

namespace platform {

std::optional<unsigned> OffenceFilter::Admit(std::uint32_t pid, Clock::time_point now)
{
    const std::lock_guard lock(m_mutex);
    const auto isKnown = [pid](const Row& row)
    {
        return row.pid == pid && row.written != Clock::time_point();
    };
    auto row = std::find_if(m_rows.begin(), m_rows.end(), isKnown);
    if (row == m_rows.end())
    {
        row = std::min_element(m_rows.begin(),
                               m_rows.end(),
                               [](const Row& left, const Row& right)
                               { return left.written < right.written; });
        *row = {pid, 0, now};
        return 0;
    }
    if (now - row->written < Interval)
    {
        ++row->keptBack;
        return std::nullopt;
    }
    const unsigned keptBack = row->keptBack;
    *row = {pid, 0, now};
    return keptBack;
}

}  // namespace platform
