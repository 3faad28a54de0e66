#pragma once

#include <compare>
#include <concepts>

namespace nvl_sm {

/// The value of what holds nothing.
struct None
{
    friend auto operator<=>(const None& left, const None& right) = default;
};

/// An integer that is made and read on purpose only, so that no other number turns into it silently
/// where several integers stand side by side.
template <std::integral T>
class BanInt final
{
public:
    using Type = T;

    constexpr BanInt() noexcept = default;
    constexpr explicit BanInt(T value) noexcept : m_value(value) {}

    [[nodiscard]] constexpr T Get() const noexcept
    {
        return m_value;
    }

    friend auto operator<=>(const BanInt& left, const BanInt& right) = default;

private:
    T m_value{};
};

static_assert(sizeof(BanInt<short>) == sizeof(short));

}  // namespace nvl_sm
