#include "ui/cert_approver_window/cert_approver_window_presenter.h"

#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes.h"

namespace cert_approver::ui {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::Field;
using ::testing::InSequence;

struct MockView : ICertApproverWindowView
{
    MOCK_METHOD(std::unique_ptr<::common::utils::ICallableGuard>,
                GetGuardView,
                (),
                (const, override));
    MOCK_METHOD(void, SetCertificateData, (const CertViewData&), (noexcept, override));
    MOCK_METHOD(void, Hide, (), (noexcept, override));
    MOCK_METHOD(void, SetSystemLanguage, (std::string_view), (noexcept, override));
};

struct CertApproverWindowPresenterTest : ::testing::Test
{
    std::shared_ptr<test::FakeCertDataGetter> getter = std::make_shared<test::FakeCertDataGetter>();
    std::shared_ptr<test::FakeVerdictSetter> setter = std::make_shared<test::FakeVerdictSetter>();
    CertApproverWindowPresenter presenter{getter,
                                          setter,
                                          std::make_unique<test::FakeLanguageReader>("pt-BR")};
    ::testing::StrictMock<MockView> view;
};

TEST_F(CertApproverWindowPresenterTest, ShowingBringsTheLanguageThenTheCertificate)
{
    getter->certificate = {.issuer = "the issuer",
                           .subject = "the subject",
                           .validFrom = 11,
                           .validTo = 22,
                           .fingerprint = "the fingerprint",
                           .address = "the address"};
    presenter.SetView(&view);

    const InSequence sequence;
    EXPECT_CALL(view, SetSystemLanguage(Eq("pt-BR")));
    EXPECT_CALL(view,
                SetCertificateData(AllOf(Field(&CertViewData::issuer, "the issuer"),
                                         Field(&CertViewData::subject, "the subject"),
                                         Field(&CertViewData::validFrom, 11),
                                         Field(&CertViewData::validTo, 22),
                                         Field(&CertViewData::fingerprint, "the fingerprint"),
                                         Field(&CertViewData::address, "the address"))));
    presenter.OnShow();
}

TEST_F(CertApproverWindowPresenterTest, TheVerdictGoesBeforeTheHiding)
{
    presenter.SetView(&view);
    EXPECT_CALL(view, Hide())
        .WillOnce([this] { EXPECT_THAT(setter->verdicts, ElementsAre(Verdict::Approve)); })
        .WillOnce([this] { EXPECT_EQ(setter->verdicts.back(), Verdict::Close); });
    presenter.OnApproveActivated();
    presenter.OnCloseActivated();
    EXPECT_EQ(setter->verdicts.size(), 2U);
}

TEST_F(CertApproverWindowPresenterTest, AnswersWithoutAView)
{
    presenter.OnApproveActivated();
    presenter.OnCloseActivated();
    EXPECT_THAT(setter->verdicts, ElementsAre(Verdict::Approve, Verdict::Close));
}

}  // namespace
}  // namespace cert_approver::ui
