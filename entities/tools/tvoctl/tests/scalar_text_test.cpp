#include "settings/scalar_text.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "failure.h"
#include "settings/difference.h"
#include "settings/kinds.h"

namespace {

using namespace tvoctl;
using settings_manager::Setting;
namespace kind = nvl::kind;

template <class T>
using Limits = std::numeric_limits<T>;

}  // namespace

TEST(ScalarText, IsTheSameValueBothWays)
{
    const struct
    {
        const char* kind;
        std::string text;
        Setting::Variant value;
    } rows[] = {
        {"none", "none", nvl_sm::None()},
        {"bool", "true", true},
        {"int8", "-128", Limits<signed char>::min()},
        {"int16", "-32768", Limits<short>::min()},
        {"int32", "2147483647", Limits<int>::max()},
        {"int64", "-9223372036854775808", Limits<long>::min()},
        {"double", "0.1", 0.1},
        {"double", "-0", -0.0},
        {"double", "5e-324", Limits<double>::denorm_min()},
        {"double", "1.7976931348623157e+308", Limits<double>::max()},
        {"double", "inf", Limits<double>::infinity()},
        {"double", "nan", std::bit_cast<double>(std::uint64_t{0x7FF8000000000000})},
        {"double", "nan:fff0000000000001", std::bit_cast<double>(0xFFF0000000000001)},
        {"timestamp", "-1", plk::types::Timestamp{-1}},
        {"string", std::string("\0 \xFF\n", 4), std::string("\0 \xFF\n", 4)},
        {"blob", "", Setting::Blob()},
        {"blob", "00ff7f", Setting::Blob{0, 0xFF, 0x7F}},
        {"uint8", "255", Limits<unsigned char>::max()},
        {"uint32", "4294967295", Limits<unsigned>::max()},
        {"uint64", "18446744073709551615", Limits<unsigned long>::max()},
    };
    for (const auto& [name, text, value] : rows)
    {
        SCOPED_TRACE(std::string(name) + ' ' + text);
        EXPECT_EQ(KindName(value.index()), name);
        EXPECT_EQ(FormatScalar(value), text);
        const Setting expected{value};
        const Setting parsed{ParseScalar(KindFromName(name), text)};
        EXPECT_TRUE(FindDifference({}, &expected, &parsed).empty());
    }
}

TEST(ScalarText, RefusesWhatIsNoValueOfItsKind)
{
    const std::pair<const char*, const char*> rows[] = {
        {"none", ""},         {"bool", "1"},       {"bool", "True"},
        {"int8", "128"},      {"int8", "-129"},    {"int16", "1 "},
        {"int32", ""},        {"int32", "+1"},     {"int32", "0x1"},
        {"int64", "1.0"},     {"uint8", "-1"},     {"uint64", "18446744073709551616"},
        {"double", "1e999"},  {"double", "1,5"},   {"double", "NAN"},
        {"double", "nan(1)"}, {"double", "nan:1"}, {"double", "nan:7ff0000000000000"},
        {"timestamp", "now"}, {"blob", "0"},       {"blob", "0g"},
        {"blob", "-1"},       {"list", "[]"},      {"map", "{}"},
    };
    for (const auto& [name, text] : rows)
    {
        EXPECT_THROW(ParseScalar(KindFromName(name), text), Failure) << name << ' ' << text;
    }
    EXPECT_THROW(KindFromName("int"), Failure);
}
