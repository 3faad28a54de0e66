#include <array>
#include <climits>
#include <cwchar>
#include <string_view>
#include <typeinfo>

#include <component/plk/text.h>

namespace zin::text {
namespace {

using types::string16_t;

constexpr char32_t CodePointEnd = 0x110000;
constexpr char32_t FirstPaired = 0x10000;
constexpr char16_t HighBase = 0xD800;
constexpr char16_t LowBase = 0xDC00;
constexpr char16_t SurrogateEnd = 0xE000;

std::size_t UnitCount(char32_t codePoint)
{
    return codePoint < FirstPaired ? 1 : 2;
}

void AppendUnits(string16_t& target, char32_t codePoint)
{
    if (codePoint < FirstPaired)
    {
        const auto unit = static_cast<char16_t>(codePoint);
        target.append_by_traits(&unit, 1);
        return;
    }
    const std::array<char16_t, 2> pair{
        static_cast<char16_t>(HighBase + ((codePoint - FirstPaired) >> 10)),
        static_cast<char16_t>(LowBase + (codePoint & 0x3FF))};
    target.append_by_traits(pair.data(), pair.size());
}

/// Code points of narrow text in the encoding of the C locale, one a call.
class NarrowReader
{
public:
    explicit NarrowReader(std::string_view text) : m_rest(text) {}

    [[nodiscard]] bool AtEnd() const
    {
        return m_rest.empty();
    }

    char32_t Next()
    {
        wchar_t character = 0;
        const std::size_t length = std::mbrtowc(&character, m_rest.data(), m_rest.size(), &m_state);
        if (length > m_rest.size())  // (size_t)-1 and -2: not a character, or only its beginning
        {
            throw std::bad_cast();
        }
        m_rest.remove_prefix(length == 0 ? 1 : length);
        return static_cast<char32_t>(character);
    }

private:
    std::string_view m_rest;
    std::mbstate_t m_state{};
};

class WideReader
{
public:
    explicit WideReader(std::wstring_view text) : m_rest(text) {}

    [[nodiscard]] bool AtEnd() const
    {
        return m_rest.empty();
    }

    char32_t Next()
    {
        const auto codePoint = static_cast<char32_t>(m_rest.front());
        m_rest.remove_prefix(1);
        return codePoint;
    }

private:
    std::wstring_view m_rest;
};

/// Two passes: the first checks and counts, so the second never has to grow the string.
template <class Reader>
string16_t ToUnits(const Reader& text)
{
    std::size_t count = 0;
    for (Reader reader = text; !reader.AtEnd();)
    {
        const char32_t codePoint = reader.Next();
        if (codePoint >= CodePointEnd)
        {
            throw std::bad_cast();
        }
        count += UnitCount(codePoint);
    }

    string16_t result;
    result.reserve_extra(nullptr, count);
    for (Reader reader = text; !reader.AtEnd();)
    {
        AppendUnits(result, reader.Next());
    }
    return result;
}

bool IsHigh(char16_t unit)
{
    return unit >= HighBase && unit < LowBase;
}

bool IsLow(char16_t unit)
{
    return unit >= LowBase && unit < SurrogateEnd;
}

char32_t Join(char16_t high, char16_t low)
{
    return FirstPaired + ((static_cast<char32_t>(high) & 0x3FF) << 10) + (low & 0x3FF);
}

}  // namespace

template <>
std::string Cast<std::string>(const string16_t& from)
{
    std::string result;
    std::mbstate_t state{};
    std::array<char, MB_LEN_MAX> buffer{};
    const auto units = from.view();
    for (std::size_t i = 0; i < units.size(); ++i)
    {
        auto codePoint = static_cast<char32_t>(units[i]);
        if (IsHigh(units[i]) && i + 1 < units.size() && IsLow(units[i + 1]))
        {
            codePoint = Join(units[i], units[i + 1]);
            ++i;
        }
        const std::size_t length =
            std::wcrtomb(buffer.data(), static_cast<wchar_t>(codePoint), &state);
        if (length > buffer.size())
        {
            throw std::bad_cast();
        }
        result.append(buffer.data(), length);
    }
    return result;
}

template <>
string16_t Cast<string16_t>(const basic_string_view<char, char_traits<char>>& from)
{
    return ToUnits(NarrowReader(std::string_view(from.data(), from.size())));
}

template <>
string16_t Cast<string16_t>(const char* const& from)
{
    return ToUnits(NarrowReader(from == nullptr ? std::string_view() : std::string_view(from)));
}

template <>
string16_t Cast<string16_t>(const std::wstring& from)
{
    return ToUnits(WideReader(from));
}

}  // namespace zin::text
