#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include <component/nvl/id_spec.h>

namespace nvl::aux {

[[nodiscard]] constexpr bool IsDigit(char character) noexcept
{
    return character >= '0' && character <= '9';
}

/// An `IdSpec` in a form that is quick to ask.
class IdRules final
{
public:
    explicit IdRules(const IdSpec& spec) noexcept
        : m_maxIndex(spec.maxIndex),
          m_isEmpty(spec.chars.empty()),
          m_separator(m_isEmpty ? '\0' : spec.chars.front())
    {
        for (const char character : spec.chars)
        {
            m_isReserved[static_cast<unsigned char>(character)] = true;
        }
    }

    /// @returns what every conversion begins with
    [[nodiscard]] IdState StateAtStart() const noexcept
    {
        return m_isEmpty ? IdState::NoSpecification : IdState::Ok;
    }

    [[nodiscard]] char Separator() const noexcept
    {
        return m_separator;
    }

    [[nodiscard]] IdState CheckIndex(unsigned long index) const noexcept
    {
        return m_maxIndex != 0 && index > m_maxIndex ? IdState::IndexTooLarge : IdState::Ok;
    }

    [[nodiscard]] IdState CheckCharacters(std::string_view name) const noexcept
    {
        const bool isBad = std::any_of(
            name.begin(),
            name.end(),
            [this](char character) { return m_isReserved[static_cast<unsigned char>(character)]; });
        return isBad ? IdState::ReservedCharacter : IdState::Ok;
    }

private:
    unsigned long m_maxIndex;
    bool m_isEmpty;
    char m_separator;
    std::array<bool, 256> m_isReserved{};
};

}  // namespace nvl::aux
