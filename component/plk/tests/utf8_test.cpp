#include <string_view>

#include <gtest/gtest.h>

#include <component/plk/utf8.h>

using plk::text::CutUtf8;
using plk::text::IsUnprintable;
using plk::text::ReadUtf8;

TEST(Utf8, ReadsOneCharacter)
{
    struct Row
    {
        std::string_view bytes;
        char32_t codePoint;
        std::size_t length;
    };
    const Row rows[] = {
        {"az", U'a', 1},
        {std::string_view("\0z", 2), 0, 1},
        {"\xC2\x80z", 0x80, 2},
        {"\xE2\x80\xAEz", 0x202E, 3},
        {"\xED\x9F\xBF", 0xD7FF, 3},
        {"\xF4\x8F\xBF\xBF", 0x10FFFF, 4},
    };
    for (const Row& row : rows)
    {
        const auto character = ReadUtf8(row.bytes);
        EXPECT_TRUE(character.isValid) << row.bytes;
        EXPECT_EQ(character.codePoint, row.codePoint);
        EXPECT_EQ(character.length, row.length);
    }
}

TEST(Utf8, TakesBrokenBytesOneByOne)
{
    for (const std::string_view bytes : {"\x80",
                                         "\xC0\x80",
                                         "\xC2",
                                         "\xC2z",
                                         "\xE2\x80",
                                         "\xE0\x80\x80",
                                         "\xED\xA0\x80",
                                         "\xF4\x90\x80\x80",
                                         "\xF8\x88\x80\x80\x80",
                                         "\xFF"})
    {
        const auto character = ReadUtf8(bytes);
        EXPECT_FALSE(character.isValid);
        EXPECT_EQ(character.length, 1U);
        EXPECT_EQ(character.codePoint, static_cast<unsigned char>(bytes[0]));
    }
}

TEST(Utf8, CutsBetweenCharacters)
{
    EXPECT_EQ(CutUtf8("abc", 3), "abc");
    EXPECT_EQ(CutUtf8("abc", 2), "ab");
    EXPECT_EQ(CutUtf8("a\xE2\x82\xAC", 3), "a");
    EXPECT_EQ(CutUtf8("a\xE2\x82\xAC-", 4), "a\xE2\x82\xAC");
    EXPECT_EQ(CutUtf8("\xF0\x9F\x94\x92", 3), "");
}

TEST(Utf8, KnowsWhatDoesNotShowItself)
{
    constexpr std::u32string_view Hidden = U"\n\x1B\x7F\x9B\u200B\u202E\u2066\uFEFF\U000E0041";
    constexpr std::u32string_view Shown = U" ~\u00A0\u0416\u2019\u4E2D\U0001F512";
    for (const char32_t character : Hidden)
    {
        EXPECT_TRUE(IsUnprintable(character)) << static_cast<unsigned>(character);
    }
    for (const char32_t character : Shown)
    {
        EXPECT_FALSE(IsUnprintable(character)) << static_cast<unsigned>(character);
    }
}
