#include <string_view>

#include <gtest/gtest.h>

#include <component/plk/utf8.h>

TEST(Utf8, TakesBrokenBytesOneByOne)
{
    for (const std::string_view bytes : {"\x80",
                                         "\xC0\x80",
                                         "\xC2",
                                         "\xC2z",
                                         "\xE0\x80\x80",
                                         "\xED\xA0\x80",
                                         "\xF4\x90\x80\x80",
                                         "\xF8\x88\x80\x80"})
    {
        EXPECT_FALSE(plk::text::ReadUtf8(bytes).isValid);
        EXPECT_EQ(plk::text::ReadUtf8(bytes).length, 1U);
    }
    EXPECT_EQ(plk::text::ReadUtf8("\xF4\x8F\xBF\xBF").codePoint, U'\U0010FFFF');
}
