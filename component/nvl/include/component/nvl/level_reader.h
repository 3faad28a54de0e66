#pragma once

#include <algorithm>
#include <string_view>
#include <variant>

#include <component/nvl/id_rules.h>
#include <component/nvl/id_spec.h>

namespace nvl {

/// Reads path texts, many by the same rules. Takes time and room in proportion to the text.
/// @note thread: any; a reader does not change
class LevelReader final
{
public:
    explicit LevelReader(const IdSpec& spec) noexcept : m_rules(spec) {}

    /// Appends the levels of a text. A separator at its end may be missing.
    /// @param levels  a sequence of variants of `unsigned long` and a string, or a string view into
    ///                the text; after a failure it holds the levels before the bad one
    template <class P>
    [[nodiscard]] IdState Read(std::string_view text, P& levels) const
    {
        IdState state = m_rules.StateAtStart();
        while (!text.empty() && state == IdState::Ok)
        {
            const std::string_view level = text.substr(0, text.find(m_rules.Separator()));
            state = ReadLevel(level, levels);
            text.remove_prefix(std::min(level.size() + 1, text.size()));
        }
        return state;
    }

private:
    template <class P>
    [[nodiscard]] IdState ReadLevel(std::string_view level, P& levels) const
    {
        unsigned long index = 0;
        const bool isIndex = !level.empty() && aux::IsDigit(level.front());
        const IdState state = isIndex ? ReadIndex(level, index) : CheckName(level);
        if (state == IdState::Ok)
        {
            isIndex ? levels.emplace_back(index) : levels.emplace_back(NameOf<P>(level));
        }
        return state;
    }

    template <class P>
    static auto NameOf(std::string_view level)
    {
        return std::variant_alternative_t<1, typename P::value_type>(level);
    }

    [[nodiscard]] IdState ReadIndex(std::string_view digits, unsigned long& index) const noexcept;
    [[nodiscard]] IdState CheckName(std::string_view name) const noexcept;

    aux::IdRules m_rules;
};

}  // namespace nvl
