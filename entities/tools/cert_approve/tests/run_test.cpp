#include "run.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tools/cert_approve/failure.h>
#include <tools/cert_approve/testing/make_certificate.h>

#include "temp_directory.h"

namespace {

using cert_approve::ExitStatus;
using cert_approve::Failure;
using cert_approve::testing::MakeCertificate;
using cert_approver::Verdict;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

class RunTest : public ::testing::Test
{
protected:
    int Run(const std::vector<std::string>& arguments)
    {
        std::vector<const char*> argv{"cert_approve"};
        for (const std::string& argument : arguments)
        {
            argv.push_back(argument.c_str());
        }
        m_out.str("");
        m_err.str("");
        return cert_approve::Run(static_cast<int>(argv.size()), argv.data(), m_ask, m_out, m_err);
    }

    cert_approve::TempDirectory m_temp;
    std::string m_pem = m_temp.Write("cert.pem", MakeCertificate().Pem());
    certs::cert_service::CertData m_asked;
    int m_questions = 0;
    Verdict m_verdict = Verdict::Approve;
    cert_approve::Ask m_ask = [this](const certs::cert_service::CertData& data)
    {
        ++m_questions;
        m_asked = data;
        return m_verdict;
    };
    std::ostringstream m_out;
    std::ostringstream m_err;
};

}  // namespace

TEST_F(RunTest, PrintsTheVerdict)
{
    EXPECT_EQ(Run({m_pem, "--address", "a\nb"}), 0);
    EXPECT_EQ(m_out.str(), "approve\n");
    EXPECT_EQ(m_asked.subject, "CN=server.test,C=XX");
    EXPECT_EQ(m_asked.address, "a\\0Ab");

    m_verdict = Verdict::Close;
    EXPECT_EQ(Run({m_pem}), 1);
    EXPECT_EQ(m_out.str(), "close\n");
    EXPECT_EQ(m_asked.address, "");
    EXPECT_EQ(m_err.str(), "");
    EXPECT_EQ(Run({"--help"}), 0);
}

TEST_F(RunTest, SavesOnlyWhatWasApprovedAndPrintsJson)
{
    const auto made =
        MakeCertificate({.subject = {{"CN", "\"q\""}}, .notAfter = "99991231235959Z"});
    const std::string pem = m_temp.Write("json.pem", made.Pem());
    const std::string folder = m_temp.path / "saved";
    std::filesystem::create_directory(folder);
    m_verdict = Verdict::Close;
    EXPECT_EQ(Run({pem, "--save", folder}), 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder));

    m_verdict = Verdict::Approve;
    EXPECT_EQ(Run({pem, "--save", folder, "--json"}), 0);
    EXPECT_FALSE(std::filesystem::is_empty(folder));
    EXPECT_THAT(m_out.str(),
                StartsWith(R"({"verdict":"approve","subject":"CN=\\\"q\\\"","issuer":)"));
    EXPECT_THAT(m_out.str(), HasSubstr(R"("validTo":"9999-12-31T23:59:59Z")"));
    EXPECT_THAT(m_out.str(), HasSubstr(",\"address\":\"\",\"saved\":\"" + folder + "/"));
}

TEST_F(RunTest, AnswersBadUseWithoutAsking)
{
    const std::vector<std::vector<std::string>> uses = {
        {m_pem, "--servername", "name"},
        {"--connect", "127.0.0.1:1", "--servername", std::string(256, 'n')},
        {m_pem, "--save", m_temp.path / "missing"},
        {m_temp.path / "missing\nfile"},
        {"/dev/zero"}};
    for (const auto& arguments : uses)
    {
        EXPECT_EQ(Run(arguments), 2) << m_err.str();
        EXPECT_EQ(m_out.str(), "");
        EXPECT_THAT(m_err.str(), MatchesRegex("cert_approve: [^\n]+\n"));
    }
    EXPECT_EQ(m_questions, 0);
}

TEST_F(RunTest, ReportsAServiceThatFails)
{
    m_ask = [](const certs::cert_service::CertData&) -> Verdict
    {
        throw Failure(ExitStatus::ServiceFailed, "the service is gone");
    };
    EXPECT_EQ(Run({m_pem, "--json"}), 4);
    EXPECT_EQ(m_out.str(), "");
    EXPECT_EQ(m_err.str(), "cert_approve: the service is gone\n");
}
