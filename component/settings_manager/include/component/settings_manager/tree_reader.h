#pragma once

#include <string_view>
#include <variant>
#include <vector>

#include <component/nvl/level_reader.h>
#include <component/nvl/path.h>
#include <component/settings_manager/raw_item.h>

namespace settings_manager::impl {

/// Rebuilds a tree from its items. The first one is the root; the parent of each other one is the
/// last item before it that stands one level higher. By their paths, items are told to lie below
/// the root and how deep; the names in between are not compared.
class TreeReader final
{
public:
    TreeReader();

    TreeReader(const TreeReader&) = delete;
    TreeReader& operator=(const TreeReader&) = delete;

    /// Puts one more item into its place. After an exception the reader is of no use.
    /// @param item  outlives the reader
    /// @throws nvl::Error, std::exception
    void Add(const RawItem& item);

    /// Hands out what has been read, and where it belongs.
    /// @throws nvl::Error `SettingsAreRequired` when there was no item
    void Finish(nvl::Path& path, Setting& setting);

private:
    /// Views into the texts of the items.
    using Levels = std::vector<std::variant<unsigned long, std::string_view>>;

    void ReadLevels(const RawItem& item);
    [[nodiscard]] std::size_t DepthOf(const RawItem& item) const;

    nvl::LevelReader m_levelReader;
    Levels m_rootLevels;
    Levels m_levels;  ///< of the item at hand
    Setting m_root;
    std::vector<Setting*> m_way;  ///< from the root down to the setting that was placed last
    const RawItem* m_rootItem = nullptr;
    const RawItem* m_previous = nullptr;
};

}  // namespace settings_manager::impl
