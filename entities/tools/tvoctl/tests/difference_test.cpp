#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "settings/report.h"
#include "tree.h"

using namespace tvoctl;

TEST(Difference, IsPrintedAsALineForEachSettingThatHasChanged)
{
    const struct
    {
        const char* before;  // empty for nothing
        const char* after;
        const char* lines;
    } rows[] = {
        {"", "[1]", "created\tp\t[1]\n"},
        {"{}", "", "deleted\tp\n"},
        {R"({"a":1,"c":[1,2],"d":{"x":1}})", R"({"a":1,"c":[1,2],"d":{"x":1}})", ""},
        {R"({"a":1,"c":1,"e":1})",
         R"({"b":1,"c":2,"d":1})",
         "deleted\tp/a\ncreated\tp/b\t1\nvalue\tp/c\t2\ncreated\tp/d\t1\ndeleted\tp/e\n"},
        {R"([1,{"x":true}])", R"([1,{"x":false},3])", "value\tp/1/x\tfalse\ncreated\tp/2\t3\n"},
        {"1", R"("1")", "value\tp\t\"1\"\n"},
        {R"({"a":{"b":1}})",
         R"({"a":{"$type":"map","readOnly":true,"value":{"b":2}}})",
         "attributes\tp/a\t{\"$type\":\"map\",\"readOnly\":true,\"value\":{\"b\":2}}\n"
         "value\tp/a/b\t2\n"},
        {"1",
         R"({"$type":"string","readOnly":true,"value":"\n"})",
         "value,attributes\tp\t{\"$type\":\"string\",\"readOnly\":true,\"value\":\"\\n\"}\n"},
        {R"({"$type":"double","value":0})",
         R"({"$type":"double","value":-0.0})",
         "value\tp\t{\"$type\":\"double\",\"value\":-0.0}\n"},
        {R"({"$type":"double","value":"nan"})", R"({"$type":"double","value":"nan"})", ""},
        {R"({"$type":"double","value":"nan"})",
         R"({"$type":"double","value":"nan:7ff8000000000001"})",
         "value\tp\t{\"$type\":\"double\",\"value\":\"nan:7ff8000000000001\"}\n"},
    };
    const auto read = [](const std::string& json)
    {
        return json.empty() ? std::nullopt : std::optional(Tree(json));
    };
    for (const auto& [beforeText, afterText, lines] : rows)
    {
        SCOPED_TRACE(std::string(beforeText) + " to " + afterText);
        const auto before = read(beforeText);
        const auto after = read(afterText);
        std::istringstream in;
        std::ostringstream stream;
        Output out(stream);
        Environment environment{
            .connectSettings = {}, .endOnSignals = {}, .keepWatching = {}, .in = in, .out = out};
        PrintChanges(environment, FindDifference(nvl::Root / "p", Pointer(before), Pointer(after)));
        EXPECT_EQ(stream.str(), lines);
    }
}
