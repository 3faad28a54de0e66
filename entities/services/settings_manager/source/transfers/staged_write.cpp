#include "staged_write.h"

#include <utility>

#include <fmt/format.h>

#include <component/nvl/error.h>

namespace settings_manager::service {

StagedWrite::StagedWrite(WriteMode mode, nvl::Path path, std::uint64_t count)
    : m_mode(mode), m_path(std::move(path)), m_count(count), m_builder(TextOf(m_path))
{
    if (count > MostNodes)
    {
        throw nvl::Error(plk::codes::InsufficientResources,
                         fmt::format("{} nodes are too many", count));
    }
}

void StagedWrite::Add(std::vector<impl::RawItem>&& items)
{
    if (items.size() > m_count - m_builder.Count())
    {
        throw nvl::Error(plk::codes::InvalidSize,
                         fmt::format("more than the {} nodes announced", m_count));
    }
    for (impl::RawItem& item : items)
    {
        const bool isReadOnly = impl::Raw::ToAttributes(item.attrib).isReadOnly;
        m_bytes += sizeof(Node) + item.value.size() + item.path.size();
        m_builder.Add(item.path, std::move(item.value), isReadOnly);
    }
}

Change StagedWrite::CommitTo(Store& store)
{
    const nvl::Level level = m_path.empty() ? nvl::Level() : m_path.back();
    return store.Write(m_mode, m_path, m_builder.Finish(level));
}

}  // namespace settings_manager::service
