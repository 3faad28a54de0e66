#include <clocale>
#include <string>
#include <string_view>
#include <typeinfo>

#include <gtest/gtest.h>

#include <component/plk/text.h>

namespace {

using zin::text::Cast;
using zin::types::string16_t;

string16_t Units(std::u16string_view units)
{
    return string16_t(string16_t::view_type(units.data(), units.size()));
}

string16_t FromBytes(std::string_view bytes)
{
    using View = zin::basic_string_view<char, zin::char_traits<char>>;
    return Cast<string16_t>(View(bytes.data(), bytes.size()));
}

}  // namespace

TEST(TextCast, GoesBothWaysOrRefusesWhatIsNoText)
{
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    const std::pair<std::string_view, std::u16string_view> rows[] = {
        {"", u""},
        {"\xD0\x94\xE2\x82\xAC", u"\u0414\u20AC"},
        {"\xF0\x90\x80\x80", u"\xD800\xDC00"},
        {"\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
        {std::string_view("a\0b", 3), std::u16string_view(u"a\0b", 3)},
    };
    for (const auto& [bytes, units] : rows)
    {
        EXPECT_TRUE(FromBytes(bytes) == Units(units)) << bytes;
        EXPECT_EQ(Cast<std::string>(Units(units)), bytes);
    }
    for (const std::string_view bytes :
         {"\xFF", "a\x80", "\xE2\x82", "\xC0\x80", "\xF4\x90\x80\x80"})
    {
        EXPECT_THROW(FromBytes(bytes), std::bad_cast);
    }
    for (const std::u16string_view units : {u"\xD800", u"\xDC00", u"\xD800x", u"\xDC00\xD800"})
    {
        EXPECT_THROW(Cast<std::string>(Units(units)), std::bad_cast);
    }
    std::setlocale(LC_CTYPE, "C");
}
