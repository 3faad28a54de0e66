#include <gtest/gtest.h>

#include <component/plk/result_code_text.h>

TEST(ResultCodeText, ShowsTextAndDigits)
{
    for (const auto& [code, text] : {std::pair{0U, "No error = 0x00"},
                                     {2U, "Unknown result code = 0x02"},
                                     {0x8000004CU, "Not found = 0x8000004c"},
                                     {0x8000004EU, "Unknown result code = 0x8000004e"},
                                     {0x80010116U, "Network error = 0x80010116"},
                                     {0xFFFFFFFFU, "Unknown result code = 0xffffffff"}})
    {
        EXPECT_EQ(plk::zinx::ResultCodeText(static_cast<int>(code)), text);
    }
}
