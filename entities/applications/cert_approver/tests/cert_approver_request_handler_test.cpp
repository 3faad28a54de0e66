#include "business/cert_approver_request_handler.h"

#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>

namespace cert_approver {
namespace {

using ::testing::_;
using ::testing::DoAll;
using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::InSequence;
using ::testing::Return;
using ::testing::SetArgReferee;

const certs::cert_service::CertData Certificate{.issuer = "i",
                                                .subject = "s",
                                                .validFrom = 1,
                                                .validTo = 2,
                                                .fingerprint = "f",
                                                .address = "a"};

struct MockSetter : interactors::ICertApproverCertDataSetter
{
    MOCK_METHOD(int,
                SetCertificateData,
                (const certs::cert_service::CertData&),
                (noexcept, override));
};

struct MockGetter : interactors::ICertApproverVerdictGetter
{
    MOCK_METHOD(int, GetUserVerdict, (Verdict&), (const, noexcept, override));
};

struct MockWindow : windows::components::IWindow
{
    MOCK_METHOD(void, Show, (), (override));
    MOCK_METHOD(bool, IsVisible, (), (const, override));
    MOCK_METHOD(void, Hide, (), (override));
    MOCK_METHOD(void, Close, (), (override));
    MOCK_METHOD(void, Resize, (int, int), (override));
};

struct CertApproverRequestHandlerTest : ::testing::Test
{
    std::shared_ptr<MockSetter> setter = std::make_shared<MockSetter>();
    std::shared_ptr<MockGetter> getter = std::make_shared<MockGetter>();
    std::shared_ptr<MockWindow> window = std::make_shared<MockWindow>();
    CertApproverRequestHandler handler{setter, getter, window};
    Verdict verdict = Verdict::Close;
};

TEST_F(CertApproverRequestHandlerTest, StoresShowsAndWaitsInThisOrder)
{
    const InSequence sequence;
    EXPECT_CALL(*setter, SetCertificateData(Certificate)).WillOnce(Return(0));
    EXPECT_CALL(*window, Show());
    EXPECT_CALL(*getter, GetUserVerdict(Eq(Verdict::Approve)))
        .WillOnce(DoAll(SetArgReferee<0>(Verdict::Close), Return(0)));
    EXPECT_EQ(handler.ApproveCert(Certificate, verdict), 0);
    EXPECT_EQ(verdict, Verdict::Close);
}

TEST_F(CertApproverRequestHandlerTest, AsksNobodyWhenTheCertificateIsNotStored)
{
    EXPECT_CALL(*setter, SetCertificateData(_)).WillOnce(Return(plk::codes::OutOfMemory));
    EXPECT_CALL(*window, Show()).Times(0);
    EXPECT_CALL(*getter, GetUserVerdict(_)).Times(0);
    EXPECT_EQ(handler.ApproveCert(Certificate, verdict), plk::codes::UnspecifiedError);
    EXPECT_EQ(verdict, Verdict::Close);
}

TEST_F(CertApproverRequestHandlerTest, PresetsApprovalWhenTheWaitGivesNoVerdict)
{
    EXPECT_CALL(*setter, SetCertificateData(_)).WillOnce(Return(0));
    EXPECT_CALL(*window, Show());
    EXPECT_CALL(*getter, GetUserVerdict(_)).WillOnce(Return(plk::codes::UnspecifiedError));
    EXPECT_EQ(handler.ApproveCert(Certificate, verdict), plk::codes::UnspecifiedError);
    EXPECT_EQ(verdict, Verdict::Approve);
}

TEST_F(CertApproverRequestHandlerTest, BothModesAreAnsweredAlikeAndReturnNoText)
{
    for (const auto mode : {Mode::Mode0, Mode::Mode1})
    {
        std::string text;
        EXPECT_CALL(*setter, SetCertificateData(Certificate)).WillOnce(Return(0));
        EXPECT_CALL(*window, Show());
        EXPECT_CALL(*getter, GetUserVerdict(_)).WillOnce(Return(0));
        EXPECT_EQ(handler.ApproveZrcCert(Certificate, mode, verdict, text), 0);
        EXPECT_EQ(verdict, Verdict::Approve);
        EXPECT_EQ(text, "");
    }
}

TEST_F(CertApproverRequestHandlerTest, NamesTheFirstMissingCollaborator)
{
    const auto failure = [](auto&&... collaborators)
    {
        try
        {
            const CertApproverRequestHandler broken(collaborators...);
        }
        catch (...)
        {
            return plk::utils::ProcessException().second;
        }
        return std::string();
    };
    EXPECT_THAT(failure(nullptr, nullptr, nullptr),
                HasSubstr("CertApproverCertDataSetter is null"));
    EXPECT_THAT(failure(setter, nullptr, nullptr), HasSubstr("ICertApproverVerdictGetter is null"));
    EXPECT_THAT(failure(setter, getter, nullptr), HasSubstr("IWindowPtr is null"));
}

}  // namespace
}  // namespace cert_approver
