#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <variant>

#include <component/nvl/value.h>

namespace nvl {
namespace for_each {

/// The answer of a visit. Any value but these four goes on like `Noted`.
enum class Option : int
{
    Next = 0,     ///< go on
    Noted = 1,    ///< go on; the walk ends with the last such value
    Stop = 2,     ///< end the walk at once
    Invalid = 3,  ///< the same; also what a node without a value gives
};

}  // namespace for_each

namespace aux {

/// One walk over a tree.
template <class P, class Index, class Visit>
class Walk final
{
public:
    Walk(P path, Visit& visit) : m_path(std::move(path)), m_visit(visit) {}

    template <class Node>
    for_each::Option Run(const Node& node)
    {
        return Enter(node) ? m_result : m_last;
    }

private:
    /// @returns false when the walk is to end, with `m_last` as its result
    template <class Node>
    bool Enter(const Node& node)
    {
        m_last = m_visit(std::as_const(m_path), node);
        if (m_last == for_each::Option::Stop || m_last == for_each::Option::Invalid)
        {
            return false;
        }
        if (m_last != for_each::Option::Next)
        {
            m_result = m_last;
        }
        return EnterChildren(node);
    }

    template <class Node>
    bool EnterChildren(const Node& node)
    {
        if (node.value.valueless_by_exception())
        {
            m_last = for_each::Option::Invalid;
            return false;
        }
        if (const auto* list = std::get_if<kind::List>(&node.value))
        {
            return EnterList(*list);
        }
        const auto* map = std::get_if<kind::Map>(&node.value);
        return map == nullptr || EnterMap(*map);
    }

    template <class List>
    bool EnterList(const List& list)
    {
        Index index = 0;
        bool goesOn = true;
        for (auto child = list.begin(); goesOn && child != list.end(); ++child)
        {
            m_path.emplace_back(index++);
            goesOn = Enter(*child);
            m_path.pop_back();
        }
        return goesOn;
    }

    template <class Map>
    bool EnterMap(const Map& map)
    {
        bool goesOn = true;
        for (auto child = map.begin(); goesOn && child != map.end(); ++child)
        {
            m_path.emplace_back(child->first);
            goesOn = Enter(child->second);
            m_path.pop_back();
        }
        return goesOn;
    }

    P m_path;
    Visit& m_visit;
    for_each::Option m_result = for_each::Option::Next;
    for_each::Option m_last = for_each::Option::Next;
};

}  // namespace aux

/// Visits a tree depth first, a node before its children, list elements by index, members by key.
/// @param path   of the root; levels for the children are appended to a copy
/// @param node   a value or a node with one as its `value`
/// @param visit  is called with the path and the node and answers with a `for_each::Option`
/// @returns `Stop` or `Invalid` if a visit or a node without a value ended the walk, otherwise the
///          last answer that was not `Next`, or `Next`
/// @note Uses stack in proportion to the depth of the tree.
template <class Index = unsigned long, class P, class Node, class Visit>
for_each::Option ForEach(const P& path, const Node& node, Visit&& visit)
{
    return aux::Walk<P, Index, std::remove_reference_t<Visit>>(path, visit).Run(node);
}

}  // namespace nvl
