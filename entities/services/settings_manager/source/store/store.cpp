#include "store.h"

#include <algorithm>
#include <utility>

#include <component/logger/logger.h>
#include <component/nvl/error.h>
#include <component/nvl/value.h>

#include "difference.h"

namespace settings_manager::service {
namespace {

NodePtr EmptyRoot()
{
    return std::make_shared<Node>(Node{{}, impl::Raw::FromValue(Setting::Map()), false, {}});
}

[[noreturn]] void RefuseReadOnly()
{
    throw nvl::Error(plk::codes::AccessDenied, "setting is read-only");
}

/// Read-only settings may be written over by their like only.
void CheckKept(const Node& before, const Node* after)
{
    if (before.isReadOnly && Compare(&before, after) != 0)
    {
        RefuseReadOnly();
    }
    for (const NodePtr& child : before.children)
    {
        const NodePtr kept = after == nullptr ? nullptr : ChildOf(*after, child->level);
        if (kept != child)
        {
            CheckKept(*child, kept.get());
        }
    }
}

}  // namespace

Store::Store(std::unique_ptr<NodeTable> table)
    : m_table(std::move(table)), m_tree(m_table == nullptr ? EmptyRoot() : m_table->Load())
{}

Snapshot Store::At(const nvl::Path& path) const
{
    Snapshot node = m_tree.At(path);
    if (node == nullptr)
    {
        throw nvl::Error(nvl::ItemMissing);
    }
    return node;
}

Change Store::Write(WriteMode mode, const nvl::Path& path, const NodePtr& setting)
{
    Snapshot before = m_tree.At(path);
    CheckMode(mode, path, before.get());
    CheckWritable(path);
    if (path.empty() && KindOf(*setting) != nvl::kind::Map)
    {
        throw nvl::Error(plk::codes::Prohibited, "the root is a map");
    }
    if (mode == WriteMode::SetValue)
    {
        setting->isReadOnly = before->isReadOnly;
    }
    if (before != nullptr)
    {
        CheckKept(*before, setting.get());
    }
    return Apply(path, std::move(before), setting);
}

Change Store::SetReadOnly(const nvl::Path& path, bool isReadOnly)
{
    Snapshot before = At(path);
    const auto after = std::make_shared<Node>(*before);
    after->isReadOnly = isReadOnly;
    return Apply(path, std::move(before), after);
}

Change Store::Delete(const nvl::Path& path)
{
    Snapshot before = At(path);
    if (path.empty())
    {
        throw nvl::Error(plk::codes::Prohibited, "the root can not be deleted");
    }
    CheckWritable(path);
    CheckKept(*before, nullptr);
    return Apply(path, std::move(before), nullptr);
}

void Store::CheckMode(WriteMode mode, const nvl::Path& path, const Node* before) const
{
    if (mode != WriteMode::Create)
    {
        if (before == nullptr)
        {
            throw nvl::Error(nvl::ItemMissing);
        }
        return;
    }
    if (before != nullptr)
    {
        throw nvl::Error(nvl::ItemExists);
    }
    nvl::Path parent = path;
    parent.pop_back();
    if (!MayHold(*At(parent), path.back()))
    {
        throw nvl::Error(nvl::PathMismatch);
    }
}

void Store::CheckWritable(const nvl::Path& path) const
{
    Snapshot node = m_tree.Root();
    for (auto level = path.begin(); node != nullptr; ++level)
    {
        if (node->isReadOnly)
        {
            RefuseReadOnly();
        }
        if (level == path.end())
        {
            return;
        }
        node = ChildOf(*node, *level);
    }
}

/// The table comes first: what fails there has not happened. The tree then follows, or the process
/// ends for want of memory and reads the table again.
Change Store::Apply(const nvl::Path& path, Snapshot before, const NodePtr& after)
{
    const unsigned char kinds = Save(path, before.get(), after.get());
    if (kinds == 0)
    {
        return {path, before, std::move(before), 0};
    }
    [&]() noexcept
    {
        after == nullptr ? m_tree.Erase(path) : m_tree.Put(path, after);
    }();
    return {path, std::move(before), after, kinds};
}

unsigned char Store::Save(const nvl::Path& path, const Node* before, const Node* after)
{
    const unsigned char kinds = Compare(before, after);
    if (kinds != 0 && m_table != nullptr)
    {
        try
        {
            m_table->Save(before, after, TextOf(path));
        }
        catch (const DatabaseError& error)
        {
            TVO_LOG_ERROR("Can not save '{}': {}", TextOf(path), error.what());
            throw nvl::Error(
                error.IsFull() ? plk::codes::OutOfSpace : plk::codes::UnspecifiedPlatformError,
                error.what());
        }
    }
    return kinds;
}

}  // namespace settings_manager::service
