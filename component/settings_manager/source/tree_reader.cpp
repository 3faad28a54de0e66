#include <fmt/format.h>

#include <component/nvl/error.h>
#include <component/nvl/path_text.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/path_to_str.h>
#include <component/settings_manager/tree_reader.h>

namespace settings_manager::impl {
namespace {

Setting ReadNode(const RawItem& item)
{
    Setting setting;
    setting.attributes = Raw::ToAttributes(item.attrib);
    item.DeserializeValue(setting);
    return setting;
}

template <class Container>
Container& ContainerIn(Setting& parent)
{
    auto* container = std::get_if<Container>(&parent.value);
    if (container == nullptr)
    {
        throw nvl::Error(nvl::PathMismatch);
    }
    return *container;
}

/// Puts a setting into its parent by the last level of its path.
struct Placement
{
    Setting& parent;
    Setting& setting;

    /// Elements that were left out hold nothing.
    Setting* operator()(unsigned long index) const
    {
        auto& list = ContainerIn<Setting::List>(parent);
        if (index >= list.size())
        {
            list.resize(index + 1);
        }
        list[index] = std::move(setting);
        return &list[index];
    }

    Setting* operator()(std::string_view name) const
    {
        auto& map = ContainerIn<Setting::Map>(parent);
        const bool isLast = map.empty() || map.rbegin()->first < name;  // as the writer sorts them
        const auto place = isLast ? map.end() : map.lower_bound(name);
        if (place != map.end() && place->first == name)
        {
            place->second = std::move(setting);
            return &place->second;
        }
        return &map.emplace_hint(place, name, std::move(setting))->second;
    }
};

}  // namespace

TreeReader::TreeReader() : m_levelReader(meta::GetIdSpecification()) {}

void TreeReader::Add(const RawItem& item)
{
    Setting setting = ReadNode(item);
    ReadLevels(item);
    if (m_rootItem == nullptr)
    {
        m_root = std::move(setting);
        m_rootLevels = m_levels;
        m_rootItem = &item;
        m_way.push_back(&m_root);
    }
    else
    {
        const std::size_t depth = DepthOf(item);
        Setting* const placed = std::visit(Placement{*m_way[depth - 1], setting}, m_levels.back());
        m_way.resize(depth);
        m_way.push_back(placed);
    }
    m_previous = &item;
}

void TreeReader::Finish(nvl::Path& path, Setting& setting)
{
    if (m_rootItem == nullptr)
    {
        throw nvl::Error(plk::codes::SettingsAreRequired, "[RawSetting] empty raw setting");
    }
    path = nvl::FromString(m_rootItem->path, meta::GetIdSpecification()).first;
    std::swap(setting, m_root);
}

void TreeReader::ReadLevels(const RawItem& item)
{
    m_levels.clear();
    const nvl::IdState state = m_levelReader.Read(item.path, m_levels);
    if (state != nvl::IdState::Ok)
    {
        throw nvl::Error(
            plk::codes::InvalidArgument,
            fmt::format("[RawSetting] Str to path fail: src = '{}', state = {}", item.path, state));
    }
}

/// How many levels the item lies below the root, after checks that it does and that its parent is
/// on the way.
std::size_t TreeReader::DepthOf(const RawItem& item) const
{
    if (m_levels.size() <= m_rootLevels.size() || !nvl::StartsWith(m_levels, m_rootLevels))
    {
        throw nvl::Error(plk::codes::LessThan,
                         fmt::format("[RawSetting] non-rooted path: root = '{}', this = '{}'",
                                     m_rootItem->path,
                                     item.path));
    }
    const std::size_t depth = m_levels.size() - m_rootLevels.size();
    if (depth > m_way.size())
    {
        throw nvl::Error(plk::codes::MoreThan,
                         fmt::format("[RawSetting] path level jump: prev = '{}', this = '{}'",
                                     m_previous->path,
                                     item.path));
    }
    return depth;
}

}  // namespace settings_manager::impl
