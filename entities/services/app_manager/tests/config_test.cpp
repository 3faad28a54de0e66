#include <gmock/gmock.h>

#include "config/config_reader.h"

namespace app_manager::service {
namespace {

using control::Kind;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::StartsWith;
using testing::ThrowsMessage;

auto Parsing(const std::string& text)
{
    return [text]
    {
        return ParseConfig(text, "f", "/programs");
    };
}

}  // namespace

TEST(Config, IsReadInTheOrderOfStarting)
{
    const auto all = Parsing(R"(
        [[application]]
        name = "approver"
        command = ["cert_approver", "--flag"]
        environment = { QT_QPA_PLATFORM = "wayland", EMPTY = "" }
        needs = ["settings"]
        commands = ["hide", "close"]
        ping_limit = 1
        restart_delay = 45
        [[service]]
        name = "settings"
        command = ["/opt/settings", "x y"]
        provides = "vx.S"
        stop_limit = 0.25
        healthy_after = 3600.0)")();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].kind, Kind::Service);
    EXPECT_EQ(all[0].program, "/opt/settings");
    EXPECT_THAT(all[0].arguments, ElementsAre("/opt/settings", "x y"));
    EXPECT_EQ(all[0].provides, "vx.S");
    EXPECT_EQ(all[0].limits.start, milliseconds(10'000));
    EXPECT_EQ(all[0].limits.stop, milliseconds(250));
    EXPECT_EQ(all[0].limits.healthyAfter, milliseconds(3'600'000));
    EXPECT_EQ(all[1].program, "/programs/cert_approver");
    EXPECT_THAT(all[1].arguments, ElementsAre("approver", "--flag"));
    EXPECT_THAT(all[1].variables, ElementsAre("EMPTY=", "QT_QPA_PLATFORM=wayland"));
    EXPECT_THAT(all[1].needs, ElementsAre("settings"));
    EXPECT_THAT(all[1].commands, ElementsAre(control::Command::Hide, control::Command::Close));
    const milliseconds s(1000);
    EXPECT_EQ(all[1].limits, (Limits{30 * s, s, 5 * s, 5 * s, 2 * s, 45 * s, 45 * s, 60 * s}));
}

TEST(Config, IsRefusedWithItsPlace)
{
    const std::string service = "[[service]]\nname = \"a\"\n";
    const std::string whole = service + "command = [\"x\"]\n";
    const std::string application = "[[application]]\ncommand = [\"x\"]\nname = ";
    // clang-format off
    const std::pair<std::string, const char*> rows[] = {
        {"", "f:1:1: there is nothing to run"},
        {"services = 1", "f:1:1: unknown key \"services\""},
        {"service = 1", "f:1:11: \"service\" stands for tables, as in [[service]]"},
        {whole + "ping_limit = 1", "f:4:1: unknown key \"ping_limit\""},
        {whole + "start_limit = \"1\"", "f:4:15: \"start_limit\" is a number of seconds"},
        {whole + "start_limit = 0",
         "f:4:15: \"start_limit\" is not between 0.001 and 86400 seconds"},
        {whole + "start_limit = 9223372036854775807",
         "f:4:15: \"start_limit\" is not between 0.001 and 86400 seconds"},
        {whole + "stop_limit = 86401",
         "f:4:14: \"stop_limit\" is not between 0.001 and 86400 seconds"},
        {whole + "restart_delay = 2\nrestart_delay_max = 1",
         "f:5:21: \"restart_delay_max\" is shorter than \"restart_delay\""},
        {whole + "provides = 3", "f:4:12: \"provides\" is a text"},
        {whole + "provides = \"" + std::string(78, 'p') + ":\"",
         "f:4:12: \"provides\" is longer than 80 bytes, where all but letters, digits and \"_-.\" "
         "count three"},
        {whole + "environment = [1]",
         "f:4:15: \"environment\" is a table, as in { NAME = \"value\" }"},
        {whole + "environment = { A = 1 }", "f:4:21: the variable A is a text"},
        {whole + "environment = { \"A=B\" = \"\" }",
         "f:4:17: no variable of the environment can have this name"},
        {whole + "environment = { A = \"\\u0000\" }", "f:4:21: the variable A holds a zero byte"},
        {service, "f:1:1: \"command\" is missing"},
        {service + "command = []", "f:3:11: \"command\" is empty"},
        {service + "command = [\"\"]", "f:3:12: the program is empty"},
        {service + "command = [\"bin/x\"]",
         "f:3:12: the program is an absolute path or a bare file name"},
        {service + "command = [\"x\", 1]", "f:3:17: a word of \"command\" is a text"},
        {whole + application + "\"a\"", "f:6:8: the name \"a\" is used twice"},
        {application + "\"\"", "f:3:8: \"name\" is empty"},
        {application + "\"" + std::string(129, 'n') + "\"",
         "f:3:8: \"name\" is longer than 128 bytes"},
        {application + "\"b\\n\"", "f:3:8: \"name\" holds a control character"},
        {application + "\"b\"\nneeds = [\"b\"]", "f:4:10: no service is named \"b\""},
        {application + "\"b\"\ncommands = [\"open\"]",
         "f:4:13: a command is \"show\", \"hide\" or \"close\""},
        {application + "\"b\"\nprovides = \"x\"", "f:4:1: unknown key \"provides\""},
    };
    // clang-format on
    for (const auto& [text, refusal] : rows)
    {
        EXPECT_THAT(Parsing(text), ThrowsMessage<ConfigError>(refusal));
    }
    EXPECT_THAT(Parsing("[[service]\n"), ThrowsMessage<ConfigError>(StartsWith("f:1:")));
    EXPECT_THAT(Parsing(whole + "name = \"b\""), ThrowsMessage<ConfigError>(StartsWith("f:4:")));
    EXPECT_NO_THROW(Parsing(whole)());
    EXPECT_THROW(static_cast<void>(ReadConfig("/tmp", "/programs")), ConfigError);
}

}  // namespace app_manager::service
