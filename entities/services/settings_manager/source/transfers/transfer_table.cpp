#include "transfer_table.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <tuple>
#include <utility>

#include <component/logger/logger.h>
#include <component/nvl/error.h>

#include "random_id.h"

namespace settings_manager::service {

void TransferTable::Remove(std::uint64_t token, std::uint64_t connection)
{
    std::ignore = EntryAt(token, connection);
    m_entries.erase(token);
}

void TransferTable::RemoveOf(std::uint64_t connection)
{
    std::erase_if(m_entries,
                  [connection](const auto& entry)
                  { return entry.second.connection == connection; });
}

void TransferTable::RemoveIdle(Moment now)
{
    for (auto entry = m_entries.begin(); entry != m_entries.end();)
    {
        const bool isIdle = now - entry->second.lastUse >= Patience;
        if (isIdle)
        {
            TVO_LOG_WARNING("Transfer #{:16X} was not continued", entry->first);
        }
        entry = isIdle ? m_entries.erase(entry) : std::next(entry);
    }
}

/// Drops the transfer that has gone beyond the bound.
void TransferTable::CheckRoom(std::uint64_t token)
{
    const auto bytes = std::accumulate(m_entries.begin(),
                                       m_entries.end(),
                                       std::size_t{0},
                                       [](std::size_t sum, const auto& entry)
                                       {
                                           const auto* write =
                                               std::get_if<StagedWrite>(&entry.second.transfer);
                                           return sum + (write == nullptr ? 0 : write->Bytes());
                                       });
    if (bytes > MostStagedBytes)
    {
        m_entries.erase(token);
        throw nvl::Error(plk::codes::InsufficientResources, "too much is being written at once");
    }
}

std::uint64_t TransferTable::Insert(Entry entry)
{
    const auto others = std::count_if(m_entries.begin(),
                                      m_entries.end(),
                                      [&entry](const auto& other)
                                      { return other.second.connection == entry.connection; });
    if (static_cast<std::size_t>(others) >= MostOfConnection)
    {
        throw nvl::Error(plk::codes::InsufficientResources, "too many transfers at once");
    }
    std::uint64_t token = MakeRandomId();
    while (m_entries.contains(token))
    {
        token = MakeRandomId();
    }
    m_entries.emplace(token, std::move(entry));
    return token;
}

TransferTable::Entry& TransferTable::EntryAt(std::uint64_t token, std::uint64_t connection)
{
    const auto found = m_entries.find(token);
    if (found == m_entries.end() || found->second.connection != connection)
    {
        RefuseToken();
    }
    return found->second;
}

void TransferTable::RefuseToken()
{
    throw nvl::Error(nvl::ItemMissing);
}

}  // namespace settings_manager::service
