#include <clocale>
#include <string>
#include <string_view>
#include <typeinfo>

#include <gtest/gtest.h>

#include <component/plk/text.h>

namespace {

using zin::text::Cast;
using zin::types::string16_t;
using NarrowView = zin::basic_string_view<char, zin::char_traits<char>>;

class TextCast : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    }
    void TearDown() override
    {
        std::setlocale(LC_CTYPE, "C");
    }
};

string16_t Units(std::u16string_view units)
{
    return string16_t(string16_t::view_type(units.data(), units.size()));
}

string16_t FromBytes(std::string_view bytes)
{
    return Cast<string16_t>(NarrowView(bytes.data(), bytes.size()));
}

}  // namespace

TEST_F(TextCast, GoesBothWays)
{
    struct Row
    {
        std::string_view bytes;
        std::u16string_view units;
    };
    const Row rows[] = {
        {"", u""},
        {"plain text", u"plain text"},
        {"\xD0\x94\xD0\xB0", u"\u0414\u0430"},
        {"\xE2\x82\xAC", u"\u20AC"},
        {"\xEF\xBF\xBD", u"\uFFFD"},
        {"\xF0\x90\x80\x80", u"\xD800\xDC00"},
        {"\xF0\x9F\x94\x92!", u"\xD83D\xDD12!"},
        {"\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
        {std::string_view("a\0b", 3), std::u16string_view(u"a\0b", 3)},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.bytes);
        EXPECT_TRUE(FromBytes(row.bytes) == Units(row.units));
        EXPECT_EQ(Cast<std::string>(Units(row.units)), row.bytes);
    }
}

TEST_F(TextCast, RefusesBytesThatAreNoText)
{
    for (const std::string_view bytes :
         {"\xFF", "a\x80", "\xE2\x82", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
    {
        EXPECT_THROW(FromBytes(bytes), std::bad_cast);
    }
}

TEST_F(TextCast, RefusesLoneSurrogates)
{
    for (const std::u16string_view units : {u"\xD800", u"\xDC00", u"\xD800x", u"\xDC00\xD800"})
    {
        EXPECT_THROW(Cast<std::string>(Units(units)), std::bad_cast);
    }
}

TEST_F(TextCast, TakesWideUnitsAsCodePoints)
{
    EXPECT_TRUE(Cast<string16_t>(std::wstring(L"\x414\U0001F512")) == Units(u"\u0414\xD83D\xDD12"));
    EXPECT_THROW(Cast<string16_t>(std::wstring(1, static_cast<wchar_t>(0x110000))), std::bad_cast);
}

TEST_F(TextCast, TakesNullAsEmpty)
{
    const char* const none = nullptr;
    EXPECT_TRUE(Cast<string16_t>(none).empty());
}
