#include <cstdint>
#include <map>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <component/plk/result_code_text.h>

namespace {

// "code text" pieces with bars between them; `first` is what their upper digits are.
std::map<std::uint32_t, std::string> Table(std::uint32_t first, const char* pieces)
{
    std::map<std::uint32_t, std::string> table;
    std::istringstream stream(pieces);
    std::uint32_t code = 0;
    for (std::string text; stream >> std::hex >> code;)
    {
        std::getline(stream >> std::ws, text, '|');
        table[first + code] = text;
    }
    return table;
}

/// Every code of the range that is not in the table must be unknown.
void ExpectRange(std::uint32_t first, std::uint32_t size, const char* pieces)
{
    const auto table = Table(first, pieces);
    for (std::uint32_t code = first; code < first + size; ++code)
    {
        const auto row = table.find(code);
        const auto text = plk::zinx::ResultCodeMessage(static_cast<int>(code));
        EXPECT_EQ(std::string(text.data(), text.size()),
                  row == table.end() ? "Unknown result code" : row->second)
            << std::hex << code;
    }
}

}  // namespace

TEST(ResultCodeText, KnowsTheCodesAndNoOthers)
{
    ExpectRange(0, 0x400, "0 No error|1 False");
    ExpectRange(
        0x80000000,
        0x400,
        "1 Interface not supported|40 Unexpected|41 Out of memory|42 Not supported|"
        "43 Not implemented|44 Buffer too small|45 Access denied|46 Invalid argument|"
        "4A Not matched|4B Unspecified error|4C Not found|4D Found|4F Locked|50 Not locked|"
        "51 Operation cancelled|57 Method not found|58 Stack is empty|59 Media error|"
        "5A Invalid signature|5B Invalid version|5C Invalid size|5D Invalid type|5E Invalid index|"
        "62 Out of space|63 Not ready|64 Less than|65 More than|66 Prohibited|67 Already done|"
        "68 Need reboot|69 Bases corrupted|6A Invalid state|6B Not initialized|"
        "6C Insufficient resources|71 Invalid result|72 Unknown exception|"
        "76 Meta information not found|77 Numerical type overflow|78 File is too big|"
        "79 Trace level ok|7A Trace level prohibited|100 Class not found|101 Settings are required|"
        "102 Unexpected settings|103 Wrong settings type|104 Wrong settings revision|"
        "105 Settings not found|106 Object is untrusted|180 Property not found|"
        "221 Operation timeout|300 Invalid symbol|301 Non dec symbol|302 Non hex symbol|"
        "303 Non base64 symbol|310 Syntax error|311 GUID syntax error|312 OID syntax error|"
        "313 DateTime syntax error");
    ExpectRange(0x80010000,
                0x200,
                "100 Unspecified platform error|101 Invalid handle|102 File not found|"
                "103 Path not found|104 Sharing violation|105 Already exists|106 Wait abandoned|"
                "107 Symbol not found|108 Sxs is incorrect|109 Invalid path name|"
                "110 Cannot open an anonymous level security token|111 Password is invalid|"
                "112 Module not found|113 System image bad signature|"
                "114 Cloud file request aborted|115 Memory mapping failed|116 Network error");
    ExpectRange(0x00010000, 0x200, "");
    ExpectRange(0x80020000, 0x200, "");
}

TEST(ResultCodeText, ShowsTextAndDigits)
{
    const std::map<std::uint32_t, std::string> rows{
        {0, "No error = 0x00"},
        {2, "Unknown result code = 0x02"},
        {0x8000004C, "Not found = 0x8000004c"},
        {0x80010116, "Network error = 0x80010116"},
        {0xFFFFFFFF, "Unknown result code = 0xffffffff"},
    };
    for (const auto& [code, text] : rows)
    {
        EXPECT_EQ(plk::zinx::ResultCodeText(static_cast<int>(code)), text);
    }
    EXPECT_EQ(zin::rtl_result_code_message(static_cast<int>(0x80010116)).front(), 'U');
}
