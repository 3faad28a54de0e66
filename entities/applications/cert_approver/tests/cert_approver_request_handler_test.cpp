#include "business/cert_approver_request_handler.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/plk/result_codes.h>

namespace cert_approver {
namespace {

using ::testing::ElementsAre;

/// All three collaborators, writing down what is asked of them.
struct FakeWorld : interactors::ICertApproverCertDataSetter,
                   interactors::ICertApproverVerdictGetter,
                   windows::components::IWindow
{
    int SetCertificateData(const certs::cert_service::CertData& data) noexcept override
    {
        calls.push_back("store " + data.issuer);
        return storeCode;
    }
    int GetUserVerdict(Verdict& verdict) const noexcept override
    {
        calls.push_back(verdict == Verdict::Approve ? "wait, preset to approve" : "wait");
        verdict = answer;
        return 0;
    }
    void Show() override
    {
        calls.emplace_back("show");
    }
    [[nodiscard]] bool IsVisible() const override
    {
        return false;
    }
    void Hide() override {}
    void Close() override {}
    void Resize(int, int) override {}

    mutable std::vector<std::string> calls;
    int storeCode = 0;
    Verdict answer = Verdict::Close;
};

struct CertApproverRequestHandlerTest : ::testing::Test
{
    std::shared_ptr<FakeWorld> world = std::make_shared<FakeWorld>();
    CertApproverRequestHandler handler{world, world, world};
    certs::cert_service::CertData certificate{.issuer = "it",
                                              .subject = "",
                                              .fingerprint = "",
                                              .address = ""};
    Verdict verdict = Verdict::Close;
};

TEST_F(CertApproverRequestHandlerTest, StoresShowsAndWaitsInThisOrder)
{
    world->answer = Verdict::Approve;
    EXPECT_EQ(handler.ApproveCert(certificate, verdict), 0);
    EXPECT_EQ(verdict, Verdict::Approve);
    EXPECT_THAT(world->calls, ElementsAre("store it", "show", "wait, preset to approve"));

    std::string text;
    world->answer = Verdict::Close;
    EXPECT_EQ(handler.ApproveZrcCert(certificate, Mode::Mode1, verdict, text), 0);
    EXPECT_EQ(verdict, Verdict::Close);
    EXPECT_EQ(text, "");
}

TEST_F(CertApproverRequestHandlerTest, AsksNobodyWhenTheCertificateIsNotStored)
{
    world->storeCode = plk::codes::OutOfMemory;
    EXPECT_EQ(handler.ApproveCert(certificate, verdict), plk::codes::UnspecifiedError);
    EXPECT_EQ(verdict, Verdict::Close);
    EXPECT_THAT(world->calls, ElementsAre("store it"));
}

}  // namespace
}  // namespace cert_approver
