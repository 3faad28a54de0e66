#include <fstream>
#include <iterator>

#include <QJsonDocument>
#include <QJsonObject>
#include <linux/input-event-codes.h>

#include "approval_fixture.h"

namespace {

using support::Process;

TEST(CallerWithoutTerminal, SaysInOneLineWhatIsWrong)
{
    const std::pair<const char*, int> rows[] = {{"--connect=127.0.0.1:1", 3}, {"-", 4}};
    for (const auto& [argument, status] : rows)
    {
        const auto caller = support::StartCaller({argument}, MakeCertificate().Pem());
        EXPECT_EQ(caller->ExitStatus(), status);
        EXPECT_EQ(caller->Output(), "");
        EXPECT_THAT(caller->Errors(), testing::MatchesRegex("cert_approve: [^\n]+\n"));
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

    cert_approve::testing::MadeCertificate certificate = MakeCertificate(Named("tls.example"));
    std::unique_ptr<Process> server;
    std::string address;
};

TEST_F(CallerOfServer, SavesAnApprovedCertificateAndReportsIt)
{
    const auto folder = terminal.Folder() / "saved";
    std::filesystem::create_directory(folder);
    const Caller caller = support::StartCaller({"--json", "--connect", address, "--save", folder});
    EXPECT_TRUE(DialogShows("CN=tls.example")) << caller->Errors();
    EXPECT_TRUE(support::FindText(display.Screen(), address, PanelValue()));
    display.PressKey(KEY_ENTER);
    EXPECT_EQ(caller->ExitStatus(), 0) << caller->Errors();
    const QJsonObject report =
        QJsonDocument::fromJson(QByteArray::fromStdString(caller->Output())).object();
    EXPECT_EQ(report["verdict"].toString().toStdString(), "approve");
    EXPECT_EQ(report["address"].toString().toStdString(), address);
    EXPECT_EQ(ReadFile(report["saved"].toString().toStdString()), certificate.Pem());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

}  // namespace
