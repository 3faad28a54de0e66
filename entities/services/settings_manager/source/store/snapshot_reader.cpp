#include "snapshot_reader.h"

#include <utility>

namespace settings_manager::service {
namespace {

std::uint64_t CountOf(const Node& node)
{
    std::uint64_t count = 1;
    for (const NodePtr& child : node.children)
    {
        count += CountOf(*child);
    }
    return count;
}

}  // namespace

SnapshotReader::SnapshotReader(Snapshot root, std::string path)
    : m_root(std::move(root)), m_next(m_root.get()), m_text(std::move(path))
{}

std::uint64_t SnapshotReader::Count() const
{
    return CountOf(*m_root);
}

void SnapshotReader::Read(std::size_t most, std::vector<impl::RawItem>& items)
{
    for (; most != 0 && m_next != nullptr; --most)
    {
        impl::RawItem& item = items.emplace_back();
        item.path = m_text;
        item.value = ValueOf(*m_next);
        item.attrib = impl::Raw::FromAttributes({m_next->isReadOnly});
        GoOn();
    }
}

void SnapshotReader::GoOn()
{
    m_way.push_back({std::exchange(m_next, nullptr), 0, m_text.size()});
    while (m_next == nullptr && !m_way.empty())
    {
        Step& step = m_way.back();
        m_text.resize(step.textSize);
        if (step.nextChild == step.node->children.size())
        {
            m_way.pop_back();
        }
        else
        {
            m_next = step.node->children[step.nextChild++].get();
            AppendLevel(m_text, m_next->level);
        }
    }
}

}  // namespace settings_manager::service
