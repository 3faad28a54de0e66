#include <thread>

#include <gmock/gmock.h>

#include "tool.h"

namespace tvoctl {
namespace {

namespace update = settings_manager::update;

constexpr unsigned char Created =
    update::Created | update::ValueChanged | update::AttributesChanged;
constexpr unsigned char Deleted = update::Deleted | update::ValueChanged;

class WatchTest : public Tool
{
protected:
    /// One step: the store holds this tree now, and tells it.
    void Change(const char* tree, const std::string& path, unsigned char kinds)
    {
        m_steps.emplace_back(
            [this, tree, path, kinds]
            {
                m_settings->root = Tree(tree);
                m_settings->Tell(path, kinds);
            });
    }
};

}  // namespace

TEST_F(WatchTest, PrintsALineForEachChange)
{
    m_settings->root = Tree(R"({"p":{"a":1}})");
    Change(R"({"p":{"a":2}})", "p/a", update::ValueChanged);
    Change(R"({"p":{"a":2,"b":{"x":1}}})", "p/b", Created);
    Change(R"({"p":{"a":2,"b":{"$type":"map","readOnly":true,"value":{"x":1}}}})",
           "p/b",
           update::AttributesChanged);
    Change(R"({"p":{"a":2}})", "p/b", Deleted);
    Change(R"({"p":{"a":2,"l":[1,2]}})", "p/l", Created);
    Change(R"({"p":{"a":2,"l":[1]}})", "p/l/1", Deleted);
    Change(R"({"p":{"a":2,"l":[9]}})", "p/l/0", update::ValueChanged);
    Change("{}", "p", Deleted);
    Change(R"({"p":3})", "p", Created);
    EXPECT_EQ(Run("watch|p|--initial"), 0) << m_err.str();
    EXPECT_EQ(m_stream.str(),
              "initial\tp\t{\"a\":1}\n"
              "value\tp/a\t2\n"
              "created\tp/b\t{\"x\":1}\n"
              "attributes\tp/b\t{\"$type\":\"map\",\"readOnly\":true,\"value\":{\"x\":1}}\n"
              "deleted\tp/b\n"
              "created\tp/l\t[1,2]\n"
              "deleted\tp/l/1\n"
              "value\tp/l/0\t9\n"
              "deleted\tp\n"
              "created\tp\t3\n");
    EXPECT_TRUE(m_isGuarded);
    EXPECT_TRUE(m_settings->observers.empty());
}

TEST_F(WatchTest, PrintsAValueOnceWhenChangesOvertakeEachOther)
{
    m_settings->root = Tree(R"({"a":1})");
    m_steps.emplace_back(
        [this]
        {
            m_settings->root = Tree(R"({"a":3})");
            m_settings->Tell("a", update::ValueChanged);
            m_settings->Tell("a", update::ValueChanged);
            m_settings->Tell("a", Deleted);  // and made again before anybody looks
            m_settings->Tell("a", Created);
        });
    Change("{}", "b", Created);                                               // and deleted again
    Change(R"({"a":4,"c":5})", "/", update::ValueChanged | update::Deleted);  // joined into one
    EXPECT_EQ(Run("watch|--json"), 0);
    EXPECT_EQ(m_stream.str(),
              "{\"change\":\"value\",\"path\":\"a\",\"setting\":3}\n"
              "{\"change\":\"value\",\"path\":\"a\"}\n"
              "{\"change\":\"deleted\",\"path\":\"a\"}\n"
              "{\"change\":\"created\",\"path\":\"a\",\"setting\":3}\n"
              "{\"change\":\"created\",\"path\":\"b\"}\n"
              "{\"change\":\"value\",\"path\":\"a\",\"setting\":4}\n"
              "{\"change\":\"created\",\"path\":\"c\",\"setting\":5}\n");
}

TEST_F(WatchTest, TellsAChangeOfItsFirstMomentOnce)
{
    std::thread callback;
    m_settings->afterSubscribe = [this, &callback]
    {
        m_settings->afterSubscribe = [] {
        };
        m_settings->root = Tree(R"({"a":1})");
        callback = std::thread([observer = m_settings->observers.begin()->second]
                               { observer->OnSettingsUpdate(ParsePath("a"), Created); });
    };
    m_steps = {[&callback]
               {
                   callback.join();
               }};
    Change(R"({"a":2})", "a", update::ValueChanged);
    EXPECT_EQ(Run("watch|--initial"), 0);
    EXPECT_EQ(m_stream.str(), "initial\t/\t{\"a\":1}\nvalue\ta\t2\n");
}

}  // namespace tvoctl
