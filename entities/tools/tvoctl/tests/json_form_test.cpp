#include <limits>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "failure.h"
#include "settings/difference.h"
#include "tree.h"

namespace {

using namespace tvoctl;
using settings_manager::Setting;

}  // namespace

TEST(JsonForm, IsPlainWhereThatIsClear)
{
    const std::pair<const char*, Setting> rows[] = {
        {"null", {}},
        {"true", {true}},
        {"-2147483648", {std::numeric_limits<int>::min()}},
        {R"("\u0001é\u202e\udb40\udc01")", {std::string("\x01é\xE2\x80\xAE\xF3\xA0\x80\x81")}},
        {"[]", {Setting::List()}},
        {R"([{},"a"])", {Setting::List{{Setting::Map()}, {std::string("a")}}}},
        {R"({"%24type":1,"%25":2,"a$":3,"%ff":4})",
         {Setting::Map{{"$type", {1}}, {"%", {2}}, {"a$", {3}}, {"\xFF", {4}}}}},
        {R"({"$type":"int8","value":-1})", {static_cast<signed char>(-1)}},
        {R"({"$type":"int16","value":-1})", {static_cast<short>(-1)}},
        {R"({"$type":"int64","value":"1"})", {1L}},
        {R"({"$type":"uint8","value":1})", {static_cast<unsigned char>(1)}},
        {R"({"$type":"uint16","value":1})", {static_cast<unsigned short>(1)}},
        {R"({"$type":"uint32","value":1})", {1U}},
        {R"({"$type":"uint64","value":"18446744073709551615"})", {~0UL}},
        {R"({"$type":"double","value":-0.0})", {-0.0}},
        {R"({"$type":"double","value":"inf"})", {std::numeric_limits<double>::infinity()}},
        {R"({"$type":"timestamp","value":"7"})", {plk::types::Timestamp{7}}},
        {R"({"$type":"string","hex":"61ff"})", {std::string("a\xFF")}},
        {R"({"$type":"string","readOnly":true,"value":"a"})", {std::string("a"), {true}}},
        {R"({"$type":"blob","hex":"00"})", {Setting::Blob{0}}},
        {R"({"$type":"none","readOnly":true,"value":null})", {nvl_sm::None(), {true}}},
        {R"({"$type":"map","readOnly":true,"value":{"a":1}})", {Setting::Map{{"a", {1}}}, {true}}},
    };
    for (const auto& [json, setting] : rows)
    {
        SCOPED_TRACE(json);
        EXPECT_EQ(ParseJson(JsonLine(ToJson(setting))), ParseJson(json));
        EXPECT_EQ(Tree(JsonPage(ToJson(setting))).value.index(), setting.value.index());
        const Setting read = Tree(json);
        EXPECT_TRUE(FindDifference({}, &setting, &read).empty());
    }
    EXPECT_EQ(JsonLine(ToJson(rows[3].second)), rows[3].first) << "invisible characters";
}

TEST(JsonForm, RefusesWhatIsUnclear)
{
    const std::string deep(400, '[');
    const std::string rows[] = {
        "",
        "1 2",
        "\"\xFF\"",
        R"("\ud800")",
        "NaN",
        "1.5",
        "1e3",
        "2147483648",
        "99999999999999999999",
        R"({"a":1,"a":2})",
        R"({"a":1,"%61":2})",
        R"({"%":1})",
        R"({"$other":1})",
        R"({"$type":"int8"})",
        R"({"$type":"int8","value":128})",
        R"({"$type":"int8","hex":"01"})",
        R"({"$type":"int8","value":1,"hex":"01"})",
        R"({"$type":"int8","value":1,"more":1})",
        R"({"$type":"int8","value":1,"readOnly":1})",
        R"({"$type":"int","value":1})",
        R"({"$type":"int32","value":1.0})",
        R"({"$type":"string","hex":"1"})",
        R"({"$type":"blob","value":"00"})",
        R"({"$type":"list","value":{}})",
        R"({"$type":"map","value":{"$type":1}})",
        deep + std::string(400, ']'),
        deep,
    };
    for (const std::string& json : rows)
    {
        EXPECT_THROW(Tree(json), Failure) << json;
    }
}
