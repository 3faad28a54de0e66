#include <algorithm>
#include <array>

#include <component/plk/result_code_text.h>
#include <component/plk/result_codes.h>
#include <component/plk/stream.h>
#include <component/plk/text.h>

namespace {

using TextView = zin::basic_string_view<char, zin::char_traits<char>>;

struct CodeText
{
    int code;
    TextView text;
};

#define PLK_CODE_TEXT(name, value, text) CodeText{static_cast<int>(value), text},
constexpr auto GeneralTexts = std::to_array<CodeText>({PLK_GENERAL_RESULT_CODES(PLK_CODE_TEXT)});
constexpr auto PlatformTexts = std::to_array<CodeText>({PLK_PLATFORM_RESULT_CODES(PLK_CODE_TEXT)});
#undef PLK_CODE_TEXT

constexpr TextView UnknownText = "Unknown result code";

enum class Facility
{
    General = 0,
    Platform = 1,
};

Facility FacilityOf(int code)
{
    return static_cast<Facility>((code >> 16) & 0x7FFF);
}

template <class Table>
TextView Find(const Table& table, int code)
{
    const auto row = std::find_if(
        table.begin(), table.end(), [code](const CodeText& entry) { return entry.code == code; });
    return row == table.end() ? UnknownText : row->text;
}

}  // namespace

namespace zin {

basic_string_view<char, char_traits<char>> rtl_result_code_message(int code) noexcept
{
    return Find(GeneralTexts, code);
}

}  // namespace zin

namespace plk::zinx {

zin::basic_string_view<char, zin::char_traits<char>> ResultCodeMessage(int code) noexcept
{
    switch (FacilityOf(code))
    {
        case Facility::General:
            return zin::rtl_result_code_message(code);
        case Facility::Platform:
            return Find(PlatformTexts, code);
    }
    return UnknownText;
}

std::string ResultCodeText(int code)
{
    zin::types::string16_t digits;
    zin::stream::stream_put_int(
        digits, zin::stream::format_options_t{.width = 2, .base = 16, .fill = U'0'}, code);

    const TextView text = ResultCodeMessage(code);
    std::string result(text.data(), text.size());
    result += " = 0x";
    result += zin::text::Cast<std::string>(digits);
    return result;
}

}  // namespace plk::zinx
