#include <cstdint>
#include <limits>
#include <memory>
#include <thread>

#include <component/plk/result_codes.h>

#include "window_fixture.h"

namespace cert_approver {
namespace {

constexpr std::int64_t Second = 1'000'000;

struct ApprovalWindow : test::WindowFixture
{
    ApprovalWindow()
    {
        Load("en-US");
    }

    QString Validity(std::int64_t time)
    {
        ui::CertViewData data;
        data.validFrom = data.validTo = time;
        view->SetCertificateData(data);
        return Property("validData");
    }
};

TEST_F(ApprovalWindow, HasPlaceholdersAndTheScreensSizeBeforeTheFirstRequest)
{
    for (const auto* text : {"addressData", "issuer", "subject", "validData", "fingerprintData"})
    {
        EXPECT_EQ(Property(text), QString(29, QLatin1Char('-'))) << text;
    }
    EXPECT_EQ(quick->size(), QSize(800, 800));
    view->Resize(1024, 768);
    EXPECT_EQ(quick->size(), QSize(1024, 768));
}

TEST_F(ApprovalWindow, ShowsTheLatestCertificateAsItIs)
{
    app.GetCertDataInteractor()->SetCertificateData({.issuer = "<b>\xD0\x98</b>",
                                                     .subject = "",
                                                     .validFrom = 0,
                                                     .validTo = Second * 86'400,
                                                     .fingerprint = "AB\nCD",
                                                     .address = "\xFF"});
    view->Show();
    EXPECT_EQ(Property("issuer"), QString::fromUtf8("<b>\u0418</b>"));
    EXPECT_EQ(Property("subject"), QString());
    EXPECT_EQ(Property("validData"), QStringLiteral("01.01.1970 00:00 - 02.01.1970 00:00"));
    EXPECT_EQ(Property("fingerprintData"), QStringLiteral("AB\nCD"));
    EXPECT_EQ(Property("addressData"), QString(QChar::ReplacementCharacter));
}

TEST_F(ApprovalWindow, ValidityIsLocalTimeTruncatedToTheSecond)
{
    struct Row
    {
        const char* zone;
        std::int64_t time;
        const char* text;
    };
    const Row rows[] = {
        {"UTC", -1, "01.01.1970 00:00"},
        {"UTC", -Second, "31.12.1969 23:59"},
        {"UTC", 1'735'689'599 * Second + 999'999, "31.12.2024 23:59"},
        {"UTC", 253'402'300'799 * Second, "31.12.9999 23:59"},
        {"ABC-3", 1'735'689'599 * Second, "01.01.2025 02:59"},
        {"ABC+6", 0, "31.12.1969 18:00"},
    };
    for (const auto& row : rows)
    {
        qputenv("TZ", row.zone);
        EXPECT_EQ(Validity(row.time).left(16), QLatin1String(row.text));
    }
    qputenv("TZ", "UTC");
    EXPECT_TRUE(Validity(std::numeric_limits<std::int64_t>::max()).contains(QLatin1String(" - ")));
}

TEST_F(ApprovalWindow, ALanguageTakesEffectWithTheNextCertificate)
{
    const auto before = Validity(0);
    view->SetSystemLanguage("ar-EG");
    EXPECT_EQ(Property("validData"), before);
    EXPECT_TRUE(Validity(0).startsWith(QString::fromUtf8("\u0660\u0661.")));
}

TEST_F(ApprovalWindow, DatesFollowTheLanguageOfEachShowing)
{
    const auto shown = [this]
    {
        view->Hide();
        view->Show();
        return Property("validData").left(2);
    };
    const auto before = shown();
    settings->settings[LanguagePath] = {"ar-EG"};
    EXPECT_NE(shown(), before);
    settings->result = plk::codes::MediaError;
    EXPECT_EQ(shown(), before) << "the service is gone";
}

TEST_F(ApprovalWindow, OffTheQtThreadTheWholeShowingIsQueued)
{
    std::thread([this] { view->Show(); }).join();
    EXPECT_FALSE(view->IsVisible());
    EXPECT_EQ(Property("issuer"), QString(29, QLatin1Char('-')));
    QCoreApplication::processEvents();
    EXPECT_TRUE(view->IsVisible());
    EXPECT_EQ(Property("issuer"), QString());
}

TEST_F(ApprovalWindow, AShowingThatOvertakesTheHidingOfTheLastAnswerIsNotLost)
{
    view->Show();
    app.GetCertDataInteractor()->SetCertificateData(
        {.issuer = "next", .subject = "", .fingerprint = "", .address = ""});
    std::thread([this] { view->Show(); }).join();
    view->Hide();
    QCoreApplication::processEvents();
    EXPECT_TRUE(view->IsVisible());
    EXPECT_EQ(Property("issuer"), QStringLiteral("next"));
}

TEST_F(ApprovalWindow, TheVerdictGoesBeforeTheHiding)
{
    view->Show();
    auto verdict = Verdict::Close;
    QObject::connect(view.get(),
                     &ui::CertApproverWindowView::VisibleChanged,
                     [&] { app.GetVerdictInteractor()->GetUserVerdict(verdict); });
    view->Approve();
    EXPECT_EQ(verdict, Verdict::Approve);
}

}  // namespace
}  // namespace cert_approver
