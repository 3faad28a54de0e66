#include "difference.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include <component/settings_manager/i_settings_manager.h>

namespace tvoctl {
namespace {

using settings_manager::Setting;
namespace kind = nvl::kind;
namespace update = settings_manager::update;

/// For values without children.
bool IsSame(const Setting::Variant& left, const Setting::Variant& right)
{
    const auto* const first = std::get_if<kind::Double>(&left);
    const auto* const second = std::get_if<kind::Double>(&right);
    if (first != nullptr && second != nullptr)
    {
        return std::bit_cast<std::uint64_t>(*first) == std::bit_cast<std::uint64_t>(*second);
    }
    return left == right;
}

bool HasChildren(const Setting& setting)
{
    return setting.value.index() == kind::List || setting.value.index() == kind::Map;
}

class Comparison
{
public:
    explicit Comparison(nvl::Path path) : m_path(std::move(path)) {}

    void Compare(const Setting* before, const Setting* after)
    {
        if (before == nullptr || after == nullptr)
        {
            const auto kinds = after != nullptr ? update::Created : update::Deleted;
            Add(before != after ? kinds : 0, after);
        }
        else
        {
            CompareNodes(*before, *after);
        }
    }

    std::vector<Change> Take()
    {
        return std::move(m_changes);
    }

private:
    void Add(int kinds, const Setting* after)
    {
        if (kinds != 0)
        {
            m_changes.push_back({m_path, static_cast<unsigned char>(kinds), after});
        }
    }

    void CompareNodes(const Setting& before, const Setting& after)
    {
        const bool isSameKind = before.value.index() == after.value.index();
        const bool goesDown = isSameKind && HasChildren(after);
        const int attributes =
            before.attributes != after.attributes ? update::AttributesChanged : 0;
        const int value = goesDown || IsSame(before.value, after.value) ? 0 : update::ValueChanged;
        Add(attributes | value, &after);
        if (goesDown && after.value.index() == kind::List)
        {
            CompareLists(std::get<kind::List>(before.value), std::get<kind::List>(after.value));
        }
        else if (goesDown)
        {
            CompareMaps(std::get<kind::Map>(before.value), std::get<kind::Map>(after.value));
        }
    }

    void CompareChild(nvl::Level level, const Setting* before, const Setting* after)
    {
        m_path.push_back(std::move(level));
        Compare(before, after);
        m_path.pop_back();
    }

    void CompareLists(const Setting::List& before, const Setting::List& after)
    {
        for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i)
        {
            CompareChild(i,
                         i < before.size() ? &before[i] : nullptr,
                         i < after.size() ? &after[i] : nullptr);
        }
    }

    void CompareMaps(const Setting::Map& before, const Setting::Map& after)
    {
        auto left = before.begin();
        auto right = after.begin();
        while (left != before.end() || right != after.end())
        {
            const bool takesLeft =
                right == after.end() || (left != before.end() && left->first <= right->first);
            const bool takesRight =
                left == before.end() || (right != after.end() && right->first <= left->first);
            CompareChild(takesLeft ? left->first : right->first,
                         takesLeft ? &left->second : nullptr,
                         takesRight ? &right->second : nullptr);
            left = takesLeft ? std::next(left) : left;
            right = takesRight ? std::next(right) : right;
        }
    }

    nvl::Path m_path;
    std::vector<Change> m_changes;
};

}  // namespace

std::vector<Change> FindDifference(const nvl::Path& path,
                                   const Setting* before,
                                   const Setting* after)
{
    Comparison comparison(path);
    comparison.Compare(before, after);
    return comparison.Take();
}

}  // namespace tvoctl
