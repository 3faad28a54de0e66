#pragma once

#include <exception>
#include <string>
#include <utility>

#include <component/nvl/error.h>
#include <component/nvl/for_each.h>
#include <component/settings_manager/raw_item.h>
#include <component/settings_manager/tree_reader.h>

namespace settings_manager {

/// Appends the items of a tree to a list: a node before its children, list elements by index, map
/// members by key.
/// @param path  where the tree stands
/// @throws nvl::Error, see `impl::RawItem`; the list then holds the items before the bad one
template <class P, class V, class I = unsigned long>
void Serialize(const P& path, const Setting& setting, V& items)
{
    nvl::ForEach<I>(path,
                    setting,
                    [&items](const P& nodePath, const Setting& node)
                    {
                        items.emplace_back(nodePath, node);
                        return nvl::for_each::Option::Next;
                    });
}

/// Rebuilds a tree from the list of its items, in the order of `Serialize`. Map members may come in
/// any order, list elements with gaps, which are filled with settings that hold nothing; what comes
/// twice counts the last time. Any bytes may be given; an item can make a list of up to 65536
/// elements, 4 MiB, and a tree of n levels takes items with at least n * n bytes of path texts.
/// @returns `nvl::ResultOk`, or a negative code with its text; `path` and `setting` then are as
///          they were
template <class V>
[[nodiscard]] std::pair<int, std::string> Deserialize(const V& items,
                                                      nvl::Path& path,
                                                      Setting& setting) noexcept
{
    try
    {
        impl::TreeReader reader;
        for (const impl::RawItem& item : items)
        {
            reader.Add(item);
        }
        reader.Finish(path, setting);
        return nvl::ResultOk;
    }
    catch (const std::exception&)
    {
        return nvl::ProcessException();
    }
}

}  // namespace settings_manager
