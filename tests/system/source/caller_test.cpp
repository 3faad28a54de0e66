#include <fstream>
#include <iterator>

#include <QJsonDocument>
#include <QJsonObject>
#include <linux/input-event-codes.h>

#include "approval_fixture.h"

namespace {

using support::Process;
using testing::MatchesRegex;

constexpr auto OneLine = "cert_approve: [^\n]+\n";

struct BadCall
{
    const char* name;
    std::vector<std::string> arguments;
    std::string input;
    int status;
};

const BadCall BadCalls[] = {
    {"nothing to ask about", {}, "", 2},
    {"an unknown option", {"--yes", "-"}, "", 2},
    {"a file that is not there", {"/nonexistent/server.pem"}, "", 2},
    {"an empty input", {"-"}, "", 2},
    {"no certificate", {"-"}, "no certificate\n", 2},
    {"a file and a server", {"--connect", "127.0.0.1:443", "-"}, "", 2},
    {"a port that is none", {"--connect", "127.0.0.1:65536"}, "", 2},
    {"nobody at the port", {"--connect", "127.0.0.1:1"}, "", 3},
    {"nobody at the port of IPv6", {"--connect", "[::1]:1"}, "", 3},
    {"no service", {"-"}, MakeCertificate().Pem(), 4},
};

TEST(CallerWithoutTerminal, SaysInOneLineWhatIsWrong)
{
    for (const BadCall& call : BadCalls)
    {
        SCOPED_TRACE(call.name);
        const auto caller = support::StartCaller(call.arguments, call.input);
        EXPECT_EQ(caller->ExitStatus(), call.status);
        EXPECT_EQ(caller->Output(), "");
        EXPECT_THAT(caller->Errors(), MatchesRegex(OneLine));
    }
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A TLS server of OpenSSL with a certificate of its own, and a terminal whose caller connects to
/// it.
class CallerOfServer : public ApprovalFixture
{
protected:
    CallerOfServer()
    {
        const auto folder = terminal.Folder();
        std::ofstream(folder / "server.pem") << certificate.Pem() << certificate.KeyPem();
        server = std::make_unique<Process>(
            Process::Command{"openssl",
                             {"s_server",
                              // Serving pages keeps it from reading its standard input to the end.
                              "-www",
                              "-accept",
                              "127.0.0.1:0",
                              "-cert",
                              folder / "server.pem"},
                             {},
                             {}});
        // It tells the port that it got: ACCEPT 127.0.0.1:41235
        EXPECT_TRUE(server->WaitForText("ACCEPT 127.0.0.1:")) << server->Errors();
        const std::string output = server->Output();
        const std::size_t start = output.find("127.0.0.1:");
        address = output.substr(start, output.find('\n', start) - start);
    }

    /// Asks about the server, to save its certificate, and answers by a key.
    Caller AskAndAnswer(std::uint32_t key)
    {
        const auto folder = terminal.Folder() / "saved";
        std::filesystem::create_directory(folder);
        Caller caller = support::StartCaller({"--json", "--connect", address, "--save", folder});
        EXPECT_TRUE(DialogShows("CN=tls.example")) << caller->Errors();
        EXPECT_TRUE(support::FindText(display.Screen(), address, PanelValue()));
        display.PressKey(key);
        return caller;
    }

    [[nodiscard]] std::vector<std::string> SavedFiles() const
    {
        std::vector<std::string> contents;
        for (const auto& entry : std::filesystem::directory_iterator(terminal.Folder() / "saved"))
        {
            contents.push_back(ReadFile(entry.path()));
        }
        return contents;
    }

    cert_approve::testing::MadeCertificate certificate = MakeCertificate(Named("tls.example"));
    std::unique_ptr<Process> server;
    std::string address;
};

TEST_F(CallerOfServer, SavesAnApprovedCertificateAndReportsIt)
{
    const auto caller = AskAndAnswer(KEY_ENTER);
    EXPECT_EQ(caller->ExitStatus(), 0) << caller->Errors();
    const QJsonObject report =
        QJsonDocument::fromJson(QByteArray::fromStdString(caller->Output())).object();
    EXPECT_EQ(report["verdict"].toString().toStdString(), "approve");
    EXPECT_EQ(report["subject"].toString().toStdString(), "CN=tls.example");
    EXPECT_EQ(report["issuer"].toString().toStdString(), "CN=Example Authority");
    EXPECT_EQ(report["validFrom"].toString().toStdString(), "2025-01-01T00:00:00Z");
    EXPECT_EQ(report["address"].toString().toStdString(), address);
    EXPECT_EQ(ReadFile(report["saved"].toString().toStdString()), certificate.Pem());
    EXPECT_EQ(SavedFiles().size(), 1U);
}

TEST_F(CallerOfServer, SavesNothingThatWasRefused)
{
    const auto caller = AskAndAnswer(KEY_ESC);
    EXPECT_EQ(caller->ExitStatus(), 1);
    const QJsonObject report =
        QJsonDocument::fromJson(QByteArray::fromStdString(caller->Output())).object();
    EXPECT_EQ(report["verdict"].toString().toStdString(), "close");
    EXPECT_TRUE(SavedFiles().empty());
}

}  // namespace
