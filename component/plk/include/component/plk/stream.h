#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>

#include <component/plk/string_view.h>

/// Formatting of numbers and narrow text into a string with `append_by_traits`.
namespace zin::stream {

struct format_options_t
{
    std::uint32_t width = 0;      ///< least number of characters
    std::uint32_t base = 10;      ///< of a number; below 2 counts as 10, above 39 as 39
    std::int32_t precision = -1;  ///< most characters of a text; negative for no limit
    /// Where the padding goes: positive first, zero between sign or prefix and digits, negative
    /// last.
    std::int32_t alignment = 1;
    std::uint32_t fill = U' ';   ///< the padding character; 0x10000 and above pads with nothing
    std::uint32_t showBase = 0;  ///< not 0: "0x" before base 16, "0" before base 8
};

template <class CharT>
struct formatting_tokens;

template <>
struct formatting_tokens<char16_t>
{
    static constexpr basic_string_view<char16_t, char_traits<char16_t>> negative = u"-";
    static constexpr basic_string_view<char16_t, char_traits<char16_t>> base_lower = u"0x";
    static constexpr basic_string_view<char16_t, char_traits<char16_t>> digits_lower =
        u"0123456789abcdefghijklmnopqrstuvwxyz";
};

namespace detail {

using View16 = basic_string_view<char16_t, char_traits<char16_t>>;

inline constexpr std::uint32_t MaxBase = 39;
inline constexpr std::uint32_t FirstNoFill = 0x10000;

/// The digits of a number, at most one a bit.
struct Digits
{
    std::array<char16_t, 64> characters{};
    std::size_t begin = 64;

    [[nodiscard]] View16 View() const
    {
        return View16(characters.data() + begin, characters.size() - begin);
    }
};

/// Bases above 36 have values that no digit stands for; these print as '?'.
inline Digits MakeDigits(std::uint64_t value, std::uint32_t base)
{
    constexpr View16 All = formatting_tokens<char16_t>::digits_lower;
    Digits digits;
    do
    {
        const std::uint64_t digit = value % base;
        digits.characters[--digits.begin] = digit < All.size() ? All[digit] : u'?';
        value /= base;
    } while (value != 0);
    return digits;
}

template <class String>
std::size_t Put(String& target, View16 text)
{
    target.append_by_traits(text.data(), text.size());
    return text.size();
}

template <class String>
std::size_t Pad(String& target, std::uint32_t fill, std::size_t count)
{
    if (fill >= FirstNoFill)
    {
        return 0;
    }
    const auto character = static_cast<char16_t>(fill);
    for (std::size_t i = 0; i < count; ++i)
    {
        target.append_by_traits(&character, 1);
    }
    return count;
}

template <class String, class Options>
std::size_t PutPadded(String& target, const Options& options, View16 head, View16 body)
{
    const std::size_t size = head.size() + body.size();
    const std::size_t missing = options.width > size ? options.width - size : 0;
    std::size_t written = size;
    written += Pad(target, options.fill, options.alignment > 0 ? missing : 0);
    Put(target, head);
    written += Pad(target, options.fill, options.alignment == 0 ? missing : 0);
    Put(target, body);
    written += Pad(target, options.fill, options.alignment < 0 ? missing : 0);
    return written;
}

inline std::uint32_t EffectiveBase(std::uint32_t base)
{
    return base < 2 ? 10 : std::min(base, MaxBase);
}

inline View16 Prefix(std::uint32_t base)
{
    constexpr View16 Prefixes = formatting_tokens<char16_t>::base_lower;
    return base == 16 ? Prefixes : Prefixes.substr(0, base == 8 ? 1 : 0);
}

}  // namespace detail

/// Appends an unsigned number.
/// @returns the number of characters written
template <class String, class Options, class Unsigned>
std::size_t stream_put_uint(String& target, const Options& options, Unsigned value)
{
    static_assert(std::is_unsigned_v<Unsigned>);
    const std::uint32_t base = detail::EffectiveBase(options.base);
    const detail::Digits digits = detail::MakeDigits(value, base);
    const auto prefix = options.showBase != 0 ? detail::Prefix(base) : detail::View16();
    return detail::PutPadded(target, options, prefix, digits.View());
}

/// Appends a signed number. Only base 10 has a minus sign; other bases show the bits of the number.
/// @returns the number of characters written
template <class String, class Options, class Signed>
std::size_t stream_put_int(String& target, const Options& options, Signed value)
{
    using Unsigned = std::make_unsigned_t<Signed>;
    const auto bits = static_cast<Unsigned>(value);
    if (value >= 0 || detail::EffectiveBase(options.base) != 10)
    {
        return stream_put_uint(target, options, bits);
    }
    const detail::Digits digits = detail::MakeDigits(static_cast<Unsigned>(0U - bits), 10);
    return detail::PutPadded(target, options, formatting_tokens<char16_t>::negative, digits.View());
}

/// Appends narrow text, each byte as one character; null counts as empty.
/// @returns the number of characters written
template <class String, class Options>
std::size_t stream_put_cstr(String& target, const Options& options, const char* text)
{
    std::string_view narrow = text == nullptr ? std::string_view() : std::string_view(text);
    if (options.precision >= 0)
    {
        narrow = narrow.substr(0, static_cast<std::size_t>(options.precision));
    }
    const std::size_t missing = options.width > narrow.size() ? options.width - narrow.size() : 0;
    const bool paddingFirst = options.alignment >= 0;
    std::size_t written = narrow.size();
    written += detail::Pad(target, options.fill, paddingFirst ? missing : 0);
    for (const char byte : narrow)
    {
        const auto wide = static_cast<char16_t>(static_cast<unsigned char>(byte));
        target.append_by_traits(&wide, 1);
    }
    written += detail::Pad(target, options.fill, paddingFirst ? 0 : missing);
    return written;
}

}  // namespace zin::stream
