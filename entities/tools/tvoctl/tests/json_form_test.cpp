#include <bit>
#include <cstdint>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "failure.h"
#include "settings/difference.h"
#include "tree.h"

namespace {

using namespace tvoctl;
using settings_manager::Setting;

/// Trees with values and names that a text form could spoil.
class RandomTree
{
public:
    Setting Make(int depth)
    {
        const std::size_t kind = Pick(depth > 2 ? 3 : 16);
        return {Value(kind, depth), {.isReadOnly = Pick(8) == 0}};
    }

private:
    std::size_t Pick(std::size_t count)
    {
        return m_random() % count;
    }

    std::string Bytes()
    {
        const char* const pieces[] = {
            "$", "%", "$type", "\xFF", "\xC3", "\xC3\xA9", "\n", "\"", "a"};
        std::string text;
        for (std::size_t i = Pick(5); i != 0; --i)
        {
            text += Pick(20) == 0 ? std::string(1, '\0') : pieces[Pick(std::size(pieces))];
        }
        return text;
    }

    template <class T>
    T Number()
    {
        return static_cast<T>(m_random() >> Pick(64));
    }

    Setting::Variant Value(std::size_t kind, int depth)
    {
        const std::string bytes = Bytes();
        Setting::List list;
        Setting::Map map;
        for (std::size_t i = depth == 0 || kind > 2 ? 0 : Pick(6); i != 0; --i)
        {
            list.push_back(Make(depth - 1));
            map.emplace(Bytes(), list.back());
        }
        const auto bits = m_random() | (Pick(4) == 0 ? 0x7FFUL << 52U : 0);  // many NaNs
        const Setting::Blob blob(bytes.begin(), bytes.end());
        const auto timestamp = plk::types::Timestamp{Number<long>()};
        // clang-format off
        const Setting::Variant values[] = {
            nvl_sm::None(), list, map, Pick(2) == 0, Number<signed char>(), Number<short>(),
            Number<int>(), Number<long>(), std::bit_cast<double>(bits), timestamp, bytes, blob,
            Number<unsigned char>(), Number<unsigned short>(), Number<unsigned>(),
            Number<unsigned long>()};
        // clang-format on
        return values[kind];
    }

    std::mt19937_64 m_random{20260301};
};

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
        const Setting read = Tree(json);
        EXPECT_TRUE(FindDifference({}, &setting, &read).empty());
    }
    EXPECT_EQ(JsonLine(ToJson(rows[3].second)), rows[3].first) << "invisible characters";
}

TEST(JsonForm, BringsRandomTreesBackToTheBit)
{
    RandomTree random;
    for (int i = 0; i < 2000; ++i)
    {
        const Setting tree = random.Make(5);
        const std::string page = JsonPage(ToJson(tree));
        const Setting read = Tree(page);
        ASSERT_TRUE(FindDifference({}, &tree, &read).empty()) << page;
        ASSERT_EQ(Tree(JsonLine(ToJson(read))).value.index(), tree.value.index());
    }
}

TEST(JsonForm, RefusesWhatIsUnclear)
{
    const std::string deep(400, '[');
    const std::string rows[] = {
        "",
        "{",
        "1 2",
        "\"\xFF\"",
        R"("\ud800")",
        "NaN",
        "1.5",
        "1e3",
        "2147483648",
        "-2147483649",
        "99999999999999999999",
        R"({"a":1,"a":2})",
        R"({"a":1,"%61":2})",
        R"({"%":1})",
        R"({"%2":1})",
        R"({"$other":1})",
        R"({"$type":"int8"})",
        R"({"$type":"int8","value":128})",
        R"({"$type":"int8","value":null})",
        R"({"$type":"int8","value":[]})",
        R"({"$type":"int8","hex":"01"})",
        R"({"$type":"int8","value":1,"hex":"01"})",
        R"({"$type":"int8","value":1,"more":1})",
        R"({"$type":"int8","value":1,"readOnly":1})",
        R"({"$type":"int","value":1})",
        R"({"$type":1,"value":1})",
        R"({"$type":"int32","value":1.0})",
        R"({"$type":"string","value":1})",
        R"({"$type":"string","hex":"1"})",
        R"({"$type":"blob","value":"00"})",
        R"({"$type":"list","value":{}})",
        R"({"$type":"map","value":[]})",
        R"({"$type":"map","value":{"$type":1}})",
        deep + std::string(400, ']'),
        deep,
    };
    for (const std::string& json : rows)
    {
        EXPECT_THROW(Tree(json), Failure) << json;
    }
}
