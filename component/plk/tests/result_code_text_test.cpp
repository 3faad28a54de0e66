#include <map>
#include <string>

#include <gtest/gtest.h>

#include <component/plk/result_code_text.h>

TEST(ResultCodeText, ShowsTextAndDigits)
{
    const std::map<std::uint32_t, std::string> rows{
        {0, "No error = 0x00"},
        {1, "False = 0x01"},
        {2, "Unknown result code = 0x02"},
        {0x80000001, "Interface not supported = 0x80000001"},
        {0x80000045, "Access denied = 0x80000045"},
        {0x80000046, "Invalid argument = 0x80000046"},
        {0x8000004C, "Not found = 0x8000004c"},
        {0x8000004D, "Found = 0x8000004d"},
        {0x8000004E, "Unknown result code = 0x8000004e"},
        {0x8000004F, "Locked = 0x8000004f"},
        {0x80000059, "Media error = 0x80000059"},
        {0x80000062, "Out of space = 0x80000062"},
        {0x80000101, "Settings are required = 0x80000101"},
        {0x80000313, "DateTime syntax error = 0x80000313"},
        {0x80010116, "Network error = 0x80010116"},
        {0x80010117, "Unknown result code = 0x80010117"},
        {0xFFFFFFFF, "Unknown result code = 0xffffffff"},
    };
    for (const auto& [code, text] : rows)
    {
        EXPECT_EQ(plk::zinx::ResultCodeText(static_cast<int>(code)), text);
    }
}
