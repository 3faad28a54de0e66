#include "context_table.h"

#include <utility>

#include <component/nvl/error.h>

#include "random_id.h"

namespace settings_manager::service {

std::uint64_t ContextTable::Add(std::uint64_t connection)
{
    if (m_contexts.size() == MostContexts)
    {
        throw nvl::Error(plk::codes::InsufficientResources, "too many contexts");
    }
    std::uint64_t cid = MakeRandomId();
    while (!m_contexts.try_emplace(cid, connection).second)
    {
        cid = MakeRandomId();
    }
    return cid;
}

void ContextTable::Remove(std::uint64_t cid)
{
    if (m_contexts.erase(cid) == 0)
    {
        throw nvl::Error(nvl::ItemMissing);
    }
}

void ContextTable::RemoveOf(std::uint64_t connection)
{
    std::erase_if(m_contexts,
                  [connection](const auto& entry)
                  { return entry.second.Connection() == connection; });
}

Context& ContextTable::At(std::uint64_t cid)
{
    const auto found = m_contexts.find(cid);
    if (found == m_contexts.end())
    {
        throw nvl::Error(nvl::ItemMissing);
    }
    return found->second;
}

SubscriptionId ContextTable::Subscribe(std::uint64_t cid, const nvl::Path& path)
{
    At(cid).Subscribe(m_lastSid + 1, path);
    return ++m_lastSid;
}

void ContextTable::Tell(const Change& change)
{
    if (change.kinds == 0)
    {
        return;
    }
    for (auto& [cid, context] : m_contexts)
    {
        context.Tell(change);
    }
    m_hasNews = true;
}

void ContextTable::TakeAnswerable(const std::function<void(Context&, const ParkedWait&)>& visit)
{
    if (!std::exchange(m_hasNews, false))
    {
        return;
    }
    for (auto& [cid, context] : m_contexts)
    {
        if (const auto wait = context.TakeAnswerable())
        {
            visit(context, *wait);
        }
    }
}

}  // namespace settings_manager::service
