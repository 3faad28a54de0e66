#include <string_view>

#include <gtest/gtest.h>

#include <component/plk/utf8.h>

using plk::text::IsUnprintable;
using plk::text::ReadUtf8;

TEST(Utf8, ReadsOneCharacter)
{
    for (const char32_t codePoint : std::u32string_view(U"a\x80\u202E\uD7FF\U0010FFFF"))
    {
        const bool isHidden = codePoint == 0x80 || codePoint == 0x202E;
        EXPECT_EQ(IsUnprintable(codePoint), isHidden) << static_cast<unsigned>(codePoint);
    }
    EXPECT_EQ(ReadUtf8("az").codePoint, U'a');
    EXPECT_EQ(ReadUtf8("\xC2\x80z").codePoint, U'\x80');
    EXPECT_EQ(ReadUtf8("\xE2\x80\xAEz").length, 3U);
    EXPECT_EQ(ReadUtf8("\xF4\x8F\xBF\xBF").codePoint, U'\U0010FFFF');
}

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
        EXPECT_FALSE(ReadUtf8(bytes).isValid);
        EXPECT_EQ(ReadUtf8(bytes).length, 1U);
    }
}
