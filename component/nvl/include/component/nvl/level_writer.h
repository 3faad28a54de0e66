#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include <component/nvl/id_rules.h>
#include <component/nvl/id_spec.h>

namespace nvl {

/// Writes paths as texts, many by the same rules: a separator behind every level.
/// @note thread: any; a writer does not change
class LevelWriter final
{
public:
    explicit LevelWriter(const IdSpec& spec) noexcept : m_rules(spec) {}

    /// @param path  a sequence of variants of `unsigned long` and a string or a string view
    /// @param room  bytes for which the text has room in any case
    /// @returns the text, empty after a failure
    template <class P>
    [[nodiscard]] std::pair<std::string, IdState> Write(const P& path, std::size_t room = 0) const
    {
        std::pair<std::string, IdState> result(std::string(), m_rules.StateAtStart());
        result.first.reserve(std::max(room, LongestText(path)));
        for (auto level = path.begin(); result.second == IdState::Ok && level != path.end();
             ++level)
        {
            result.second = WriteLevel(*level, result.first);
        }
        if (result.second != IdState::Ok)
        {
            result.first.clear();
        }
        return result;
    }

private:
    static constexpr std::size_t LongestIndex = 20;

    template <class P>
    static std::size_t LongestText(const P& path)
    {
        std::size_t length = 0;
        for (const auto& level : path)
        {
            const auto* name = std::get_if<1>(&level);
            length += (name == nullptr ? LongestIndex : name->size()) + 1;
        }
        return length;
    }

    template <class LevelType>
    [[nodiscard]] IdState WriteLevel(const LevelType& level, std::string& text) const
    {
        if (const auto* index = std::get_if<0>(&level))
        {
            return WriteIndex(*index, text);
        }
        const auto* name = std::get_if<1>(&level);
        return name == nullptr ? IdState::NoLevel : WriteName(*name, text);
    }

    [[nodiscard]] IdState WriteIndex(unsigned long index, std::string& text) const;
    [[nodiscard]] IdState WriteName(std::string_view name, std::string& text) const;

    aux::IdRules m_rules;
};

}  // namespace nvl
