#include <tuple>

#include <gmock/gmock.h>

#include "tool.h"

namespace tvoctl {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

constexpr const char* Content = R"({"m":{"a":"text","n":{"$type":"uint8","value":7}},
                                    "r":{"$type":"bool","readOnly":true,"value":true}})";

using CommandsTest = Tool;

}  // namespace

TEST_F(CommandsTest, PrintSettings)
{
    m_settings->root = Tree(Content);
    const std::tuple<const char*, int, const char*> rows[] = {
        {"get|m/a", 0, "text\n"},
        {"get|m",
         0,
         R"({"a":"text","n":{"$type":"uint8","value":7}})"
         "\n"},
        {"get|m/n|--json",
         0,
         R"({"path":"m/n","setting":{"$type":"uint8","value":7}})"
         "\n"},
        {"get|x", 1, ""},
        {"list", 0, "m\tmap\trw\t(2)\nr\tbool\tro\ttrue\n"},
        {"list|m", 0, "a\tstring\trw\ttext\nn\tuint8\trw\t7\n"},
        {"--json|list|/",
         0,
         R"({"path":"m","readOnly":false,"size":2,"type":"map"})"
         "\n"
         R"({"path":"r","readOnly":true,"setting":{"$type":"bool","readOnly":true,"value":true},)"
         R"("type":"bool"})"
         "\n"},
        {"list|m/a", 1, ""},
        {"attr|r", 0, "ro\n"},
        {"attr|m|--json",
         0,
         R"({"path":"m","readOnly":false})"
         "\n"},
        {"dump|m/a", 0, "{\n  \"path\": \"m/a\",\n  \"setting\": \"text\"\n}\n"},
    };
    for (const auto& [arguments, status, out] : rows)
    {
        EXPECT_EQ(Run(arguments), status) << arguments << m_err.str();
        EXPECT_EQ(m_stream.str(), out) << arguments;
    }
    EXPECT_THAT(m_settings->writes, ElementsAre());
}

TEST_F(CommandsTest, WriteSettings)
{
    const struct
    {
        const char* arguments;
        int status;
        const char* write;  // what the store is asked for last
        const char* place;  // what is looked at then, and what is there
        const char* tree = Content;
    } rows[] = {
        {"attr|r|rw", 0, "attribute r", "r", "true"},
        {"set|m/n|255", 0, "value m/n", "m/n", R"({"$type":"uint8","value":255})"},
        {"set|m/n|256", 2, "", "/"},
        {"set|m/n|--type|string|256", 0, "value m/n", "m/n", R"("256")"},
        {"set|m/a|-5|--json", 0, "value m/a", "m/a", R"("-5")"},
        {"set|m|{\"b\":1}", 0, "value m", "m", R"({"b":1})"},
        {"set|m|[1]", 2, "", "/"},
        {"set|m|{\"1b\":1}", 2, "", "/"},
        {"set|x|1|--type|int8", 1, "value x", "/"},
        {"create|m/b", 0, "create m/b", "m/b", "{}"},
        {"create|m/b|--type|int32|1", 0, "create m/b", "m/b", "1"},
        {"create|x/y/z|1", 0, "create x", "x", R"({"y":{"z":"1"}})"},
        {"create|x|--type|list", 0, "create x", "x", "[]"},
        {"create|x|--type|int8", 2, "", "/"},
        {"create|x/0|1", 1, "", "/"},
        {"create|m/a|1", 1, "create m/a", "/"},
        {"delete|m/n", 0, "delete m/n", "m", R"({"a":"text"})"},
        {"delete|x", 1, "delete x", "/"},
    };
    for (const auto& [arguments, status, write, place, tree] : rows)
    {
        SCOPED_TRACE(arguments);
        m_settings = std::make_shared<FakeSettings>();
        m_settings->root = Tree(Content);
        EXPECT_EQ(Run(arguments), status) << m_err.str();
        EXPECT_THAT(m_err.str(), MatchesRegex(status == 0 ? "" : "tvoctl: [^\n]+\n"));
        EXPECT_EQ(m_settings->writes.empty() ? "" : m_settings->writes.back(), write);
        const auto* const now = FindPlace(*m_settings->root, ParsePath(place));
        ASSERT_NE(now, nullptr);
        EXPECT_EQ(*now, Tree(tree));
    }
}

TEST_F(CommandsTest, SetOrCreateInOneTransaction)
{
    EXPECT_EQ(Run("set|--create|a/b/c|x"), 0);
    EXPECT_EQ(Run("set|--create|a/b/c|7"), 0);
    EXPECT_EQ(Run("set|--create|a/d|7|--type|int16"), 0);
    EXPECT_EQ(*m_settings->root, Tree(R"({"a":{"b":{"c":"7"},"d":{"$type":"int16","value":7}}})"));
    EXPECT_THAT(m_settings->writes,
                ElementsAre("value a/b/c", "create a", "value a/b/c", "value a/d", "create a/d"));
}

TEST_F(CommandsTest, CreateBesidesAParentThatSomebodyElseMakesMeanwhile)
{
    m_settings->beforeCreate = [this]
    {
        m_settings->root = Tree(R"({"a":{"other":1}})");
    };
    EXPECT_EQ(Run("create|a/b|1"), 0) << m_err.str();
    EXPECT_EQ(*m_settings->root, Tree(R"({"a":{"other":1,"b":"1"}})"));

    m_settings->root = Tree("{}");
    m_settings->beforeCreate = [this]
    {
        m_settings->root = Tree(R"({"a":{"b":{"c":1}}})");
    };
    EXPECT_EQ(Run("set|--create|a/b/c|2"), 0) << m_err.str();
    EXPECT_EQ(*m_settings->root, Tree(R"({"a":{"b":{"c":"2"}}})"));
}

TEST_F(CommandsTest, LoadWhatWasDumpedInOneWrite)
{
    m_settings->root = Tree(Content);
    EXPECT_EQ(Run("dump|m"), 0);
    const std::string dump = m_stream.str();
    m_settings->root = Tree(R"({"m":{"a":"other","x":1}})");
    m_in.str(dump);
    EXPECT_EQ(Run("load|--dry-run|-"), 0) << m_err.str();
    EXPECT_EQ(m_stream.str(),
              "value\tm/a\t\"text\"\ncreated\tm/n\t{\"$type\":\"uint8\",\"value\":7}\n"
              "deleted\tm/x\n");
    EXPECT_THAT(m_settings->writes, ElementsAre());
    for (const char* before : {R"({"m":{"a":"other","x":1}})", "{}"})
    {
        m_settings->root = Tree(before);
        m_in.clear();
        m_in.str(dump);
        EXPECT_EQ(Run("load|-"), 0) << m_err.str();
        EXPECT_EQ(*FindPlace(*m_settings->root, ParsePath("m")),
                  *FindPlace(Tree(Content), ParsePath("m")));
    }
    EXPECT_THAT(m_settings->writes, ElementsAre("setting m", "setting m", "create m"));
}

TEST_F(CommandsTest, RefuseBadUseBeforeTheyConnect)
{
    const char* const uses[] = {"",
                                "get",
                                "get|a|b",
                                "get|/a",
                                "get|a b",
                                "get|1a",
                                "get|65536",
                                "set|a",
                                "attr|a|wo",
                                "load",
                                "load|/missing/file",
                                "load|/",
                                "get|a|--server|other",
                                "get|a|--wait|-1",
                                "set|a|b|--type|text",
                                "create|a|--type|int8|x"};
    for (const char* arguments : uses)
    {
        EXPECT_EQ(Run(arguments), 2) << arguments;
        EXPECT_EQ(m_stream.str(), "");
        EXPECT_THAT(m_err.str(), MatchesRegex("tvoctl: [^\n]+\n"));
    }
    const char* const inputs[] = {R"({"path":"a"})",
                                  R"({"path":"a","setting":1,"more":1})",
                                  R"({"path":"a b","setting":1})",
                                  R"({"path":"a%","setting":1})",
                                  R"({"path":"a","setting":{"b c":1}})",
                                  R"([])"};
    for (const char* input : inputs)
    {
        m_in.clear();
        m_in.str(input);
        EXPECT_EQ(Run("load|-"), 2) << input;
    }
    EXPECT_EQ(m_connections, 0);
}

TEST_F(CommandsTest, TellTheServiceFromItsRefusals)
{
    const std::pair<int, int> rows[] = {
        {plk::codes::AccessDenied, 1}, {plk::codes::OutOfSpace, 1}, {plk::codes::MediaError, 4}};
    for (const auto& [code, status] : rows)
    {
        m_settings->refusal = code;
        for (const char* arguments : {"get|a",
                                      "set|a|1",
                                      "set|--create|a/b|1|--type|int8",
                                      "create|a",
                                      "create|a/b/c",
                                      "delete|a",
                                      "attr|a",
                                      "attr|a|ro",
                                      "list",
                                      "dump",
                                      "watch"})
        {
            EXPECT_EQ(Run(arguments), status) << arguments << ' ' << code;
            EXPECT_EQ(m_stream.str(), "");
        }
    }
    m_settings->refusal = plk::codes::AccessDenied;
    Run("set|a|1");
    EXPECT_EQ(m_err.str(), "tvoctl: cannot read 'a': Access denied = 0x80000045\n");
    m_settings.reset();
    EXPECT_EQ(Run("get|a|--server|vx.settings_manager.MSmgr"), 4);
    EXPECT_EQ(m_err.str(), "tvoctl: it is not there\n");
    EXPECT_EQ(m_server, "vx.settings_manager.MSmgr");
}

TEST_F(CommandsTest, ReportAnOutputThatCannotBeWritten)
{
    m_stream.setstate(std::ios::badbit);
    EXPECT_EQ(Run("list"), 0) << "nothing to print";
    EXPECT_EQ(Run("attr|/"), 1);
    EXPECT_THAT(m_err.str(), HasSubstr("cannot write"));
}

}  // namespace tvoctl
