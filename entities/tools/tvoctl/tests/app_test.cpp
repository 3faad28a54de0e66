#include <cstdlib>
#include <ctime>

#include <gmock/gmock.h>

#include "tool.h"

namespace tvoctl {
namespace {

using namespace app_manager::control;
using ::testing::ElementsAre;
using ::testing::MatchesRegex;

/// 2027-01-15, twelve seconds past eight in the morning, and a half.
constexpr Moment Morning{std::chrono::milliseconds{1'800'000'012'500}};

const ApplicationStatus Fresh{};
const ApplicationStatus Restarted{.kind = Kind::Application,
                                  .state = State::Ready,
                                  .pid = 4711,
                                  .restarts = 2,
                                  .readySince = Morning,
                                  .lastPing = Ping{Morning, std::chrono::milliseconds{400}},
                                  .startsIn = {},
                                  .reportedState = -2,
                                  .lastEnd = LastEnd{EndKind::Hang, true, 6, Morning, "no\nping"},
                                  .lastError = {}};
const ApplicationStatus Down{
    .kind = Kind::Application,
    .state = State::Delayed,
    .restarts = 1,
    .readySince = {},
    .lastPing = {},
    .startsIn = std::chrono::milliseconds{65'000},
    .reportedState = {},
    .lastEnd = LastEnd{EndKind::InternalError, false, 3, Morning, "it gave up"},
    .lastError = InternalError{"no\xFFmemory", "\"none\""}};

/// A manager of three; "gone" is listed and no longer there.
class FakeManager final : public IControlClient
{
public:
    explicit FakeManager(std::vector<std::string>& sent) : m_sent(sent) {}

    std::vector<Entry> List() override
    {
        return {{"settings", Kind::Service, State::Waiting, 0},
                {"gone", Kind::Application, State::Ready, 1},
                {"cert_approver", Kind::Application, State::Ready, 4711},
                {"down", Kind::Application, State::Delayed, 0}};
    }

    ApplicationStatus Status(std::string_view name) override
    {
        if (name == "gone")
        {
            throw Refusal(refusals::UnknownName);
        }
        return name == "settings" ? Fresh : name == "down" ? Down : Restarted;
    }

    void Send(std::string_view name, Command command) override
    {
        m_sent.push_back(std::string(name) + ' ' + std::to_string(static_cast<int>(command)));
        if (name == "down")
        {
            throw Refusal(refusals::NotReady);
        }
    }

private:
    std::vector<std::string>& m_sent;
};

class AppTest : public Tool
{
protected:
    AppTest()
    {
        ::setenv("TZ", "UTC", 1);
        m_connectManager = [this](std::chrono::milliseconds patience)
        {
            m_patience = patience;
            return std::make_unique<FakeManager>(m_sent);
        };
        m_listServices = []
        {
            return std::vector<PublishedService>{
                {"WzISM", "WzISM", "vx.Settings", false, 12, 1000, 0, 3},
                {"fixed\x1b", "", "", true, 0, 1000, {}, {}}};
        };
    }

    std::vector<std::string> m_sent;
    std::chrono::milliseconds m_patience{};
};

}  // namespace

TEST_F(AppTest, PrintWhatThereIs)
{
    const std::pair<const char*, const char*> rows[] = {
        {"services",
         "NAME         INTERFACE  ENTITY       PID  UID   WAITING  SERVED\n"
         "WzISM        WzISM      vx.Settings  12   1000  0        3\n"
         "fixed\\u001b  (static)   -            ?    1000  ?        ?\n"},
        {"services|--json",
         R"({"entity":"vx.Settings","interface":"WzISM","name":"WzISM","pid":12,"served":3,)"
         R"("static":false,"uid":1000,"waiting":0})"
         "\n"
         R"({"entity":null,"interface":null,"name":"fixed\u001b","pid":null,"served":null,)"
         R"("static":true,"uid":1000,"waiting":null})"
         "\n"},
        {"app|list",
         "NAME           KIND         STATE    PID\n"
         "settings       service      waiting  -\n"
         "gone           application  ready    1\n"
         "cert_approver  application  ready    4711\n"
         "down           application  delayed  -\n"},
        {"app|status",
         "settings: waiting\n"
         "  kind            service\n"
         "  pid             -\n"
         "  restarts        0\n"
         "cert_approver: ready\n"
         "  kind            application\n"
         "  pid             4711\n"
         "  ready since     2027-01-15 08:00:12 +0000\n"
         "  last ping       2027-01-15 08:00:12 +0000, 0.4 s ago\n"
         "  reported state  -2 (ready to shut down)\n"
         "  restarts        2\n"
         "  last end        2027-01-15 08:00:12 +0000: hang\n"
         "  cause           no\\u000aping\n"
         "down: delayed\n"
         "  kind            application\n"
         "  pid             -\n"
         "  restarts        1\n"
         "  starts in       1 min 5 s\n"
         "  last end        2027-01-15 08:00:12 +0000: internal-error\n"
         "  cause           it gave up\n"
         "  last error      no\\ufffdmemory - \"none\"\n"},
        {"app|status|down|--json",
         R"({"kind":"application","lastEnd":{"cause":"it gave up","exitStatus":3,)"
         R"("kind":"internal-error","signal":null,"when":"2027-01-15T08:00:12.500000Z"},)"
         "\"lastError\":{\"description\":\"\\\"none\\\"\",\"error\":\"no\uFFFDmemory\"},"
         R"("lastPing":null,"name":"down","pid":null,"pingAgeMs":null,"readySince":null,)"
         R"("reportedState":null,"restarts":1,"startsInMs":65000,"state":"delayed"})"
         "\n"},
        {"app|--json|status|settings",
         R"({"kind":"service","lastEnd":null,"lastError":null,"lastPing":null,"name":"settings",)"
         R"("pid":null,"pingAgeMs":null,"readySince":null,"reportedState":null,"restarts":0,)"
         R"("startsInMs":null,"state":"waiting"})"
         "\n"},
    };
    for (const auto& [arguments, out] : rows)
    {
        EXPECT_EQ(RunTool(arguments), 0) << arguments << m_err.str();
        EXPECT_EQ(m_stream.str(), out) << arguments;
    }
    EXPECT_THAT(m_sent, ElementsAre());
}

TEST_F(AppTest, SendCommands)
{
    const std::pair<const char*, const char*> rows[] = {{"app|show|a", ""},
                                                        {"app|hide|settings", ""},
                                                        {"app|close|list", ""},
                                                        {"app|--wait|3|restart|a|--json",
                                                         R"({"done":"restart","name":"a"})"
                                                         "\n"}};
    for (const auto& [arguments, out] : rows)
    {
        EXPECT_EQ(RunTool(arguments), 0) << arguments << m_err.str();
        EXPECT_EQ(m_stream.str(), out) << arguments;
    }
    EXPECT_THAT(m_sent, ElementsAre("a 1", "settings 2", "list 3", "a 4"));
    EXPECT_EQ(m_patience, std::chrono::seconds{3});
}

TEST_F(AppTest, SayInOneLineWhatHasFailed)
{
    const struct
    {
        const char* arguments;
        int status;
        const char* error;
    } rows[] = {
        {"app|hide|down", 1, "'down': it is not ready to take commands"},
        {"app|status|gone", 1, "'gone': no application or service has this name"},
        {"app", 2, "[^\n]+"},
        {"app|show", 2, "[^\n]+"},
        {"app|list|a", 2, "[^\n]+"},
        {"app|list|--wait|-1", 2, "[^\n]+"},
        {"services|a", 2, "[^\n]+"},
    };
    for (const auto& [arguments, status, error] : rows)
    {
        EXPECT_EQ(RunTool(arguments), status) << arguments;
        EXPECT_EQ(m_stream.str(), "");
        EXPECT_THAT(m_err.str(), MatchesRegex(std::string("tvoctl: ") + error + "\n"));
    }
    m_connectManager = [](auto) -> std::unique_ptr<IControlClient>
    {
        throw NoManager("the application manager is not there");
    };
    EXPECT_EQ(RunTool("app|status"), 4);
    EXPECT_EQ(m_err.str(), "tvoctl: the application manager is not there\n");
}

}  // namespace tvoctl
