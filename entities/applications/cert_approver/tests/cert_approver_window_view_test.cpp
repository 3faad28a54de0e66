#include "ui/cert_approver_window/cert_approver_window_view.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <thread>

#include <QCoreApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <shared/ui_kit/style/palette_factory.h>
#include <shared/ui_kit/style/palette_id_interactor.h>

#include "fakes.h"

namespace cert_approver::ui {
namespace {

struct MockPresenter : ICertApproverWindowPresenter
{
    MOCK_METHOD(void, SetView, (ICertApproverWindowView*), (noexcept, override));
    MOCK_METHOD(void, OnCloseActivated, (), (noexcept, override));
    MOCK_METHOD(void, OnApproveActivated, (), (noexcept, override));
    MOCK_METHOD(void, OnShow, (), (noexcept, override));
    MOCK_METHOD(void, OnHide, (), (noexcept, override));
};

struct CertApproverWindowViewTest : ::testing::Test
{
    CertApproverWindowViewTest()
    {
        paletteId->SetPaletteId(vdi::uikit::utils::style::PaletteId::Dark);
        auto owned = std::make_unique<::testing::NiceMock<MockPresenter>>();
        presenter = owned.get();
        view = std::make_unique<CertApproverWindowView>(
            engine.rootContext(),
            std::move(owned),
            paletteId,
            vdi::uikit::utils::style::CreatePaletteFactory(),
            nullptr);
    }

    QString Shown(const char* property) const
    {
        return engine.rootContext()->contextProperty(QLatin1String(property)).toString();
    }

    QString Validity(std::int64_t from, std::int64_t to)
    {
        CertViewData data;
        data.validFrom = from;
        data.validTo = to;
        view->SetCertificateData(data);
        return Shown("validData");
    }

    void ShowOnAnotherThread()
    {
        std::thread([this] { view->Show(); }).join();
    }

    test::GuiApplication application;
    QQmlEngine engine;
    std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> paletteId =
        vdi::uikit::utils::style::CreatePaletteIdInteractor();
    MockPresenter* presenter = nullptr;
    std::unique_ptr<CertApproverWindowView> view;
};

constexpr std::int64_t Second = 1'000'000;

TEST_F(CertApproverWindowViewTest, PublishesPlaceholdersAtFirst)
{
    for (const auto* property :
         {"addressData", "issuer", "subject", "validData", "fingerprintData"})
    {
        EXPECT_EQ(Shown(property), QString(29, QLatin1Char('-'))) << property;
    }
    EXPECT_EQ(Shown("winWidth"), QStringLiteral("800"));
    EXPECT_EQ(Shown("winHeight"), QStringLiteral("600"));
    view->Resize(1920, 1080);
    EXPECT_EQ(Shown("winWidth"), QStringLiteral("1920"));
    EXPECT_EQ(Shown("winHeight"), QStringLiteral("1080"));
}

TEST_F(CertApproverWindowViewTest, PublishesTheTextsAsTheyAre)
{
    view->SetCertificateData(
        {.issuer = "<b>\xD0\x98</b>", .subject = "", .fingerprint = "AB\nCD", .address = "\xFF"});
    EXPECT_EQ(Shown("issuer"), QString::fromUtf8("<b>\u0418</b>"));
    EXPECT_EQ(Shown("subject"), QString());
    EXPECT_EQ(Shown("fingerprintData"), QStringLiteral("AB\nCD"));
    EXPECT_EQ(Shown("addressData"), QString(QChar::ReplacementCharacter));
}

TEST_F(CertApproverWindowViewTest, ValidityIsLocalTimeTruncatedToTheSecond)
{
    struct Row
    {
        const char* zone;
        std::int64_t microseconds;
        const char* text;
    };
    const Row rows[] = {
        {"UTC", 0, "01.01.1970 00:00"},
        {"UTC", -1, "01.01.1970 00:00"},
        {"UTC", -Second, "31.12.1969 23:59"},
        {"UTC", 1'735'689'599 * Second + 999'999, "31.12.2024 23:59"},
        {"UTC", 253'402'300'799 * Second, "31.12.9999 23:59"},
        {"ABC-3", 1'735'689'599 * Second, "01.01.2025 02:59"},
        {"ABC+6", 0, "31.12.1969 18:00"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.text);
        qputenv("TZ", row.zone);
        EXPECT_EQ(Validity(row.microseconds, row.microseconds),
                  QLatin1String(row.text) + QLatin1String(" - ") + QLatin1String(row.text));
    }
    qputenv("TZ", "UTC");
    using Limits = std::numeric_limits<std::int64_t>;
    EXPECT_TRUE(Validity(Limits::min(), Limits::max()).contains(QLatin1String(" - ")));
}

TEST_F(CertApproverWindowViewTest, ALanguageTakesEffectWithTheNextCertificate)
{
    const auto before = Validity(0, 0);
    view->SetSystemLanguage("ar-EG");
    EXPECT_EQ(Shown("validData"), before);
    EXPECT_TRUE(Validity(0, 0).startsWith(QString::fromUtf8("\u0660\u0661.")));
    view->SetSystemLanguage("");
    EXPECT_EQ(Validity(0, 0), before);
}

TEST_F(CertApproverWindowViewTest, ShowAndHideTellOnlyOfChanges)
{
    const QSignalSpy changes(view.get(), &CertApproverWindowView::VisibleChanged);
    EXPECT_CALL(*presenter, OnShow()).WillOnce([this] { EXPECT_TRUE(view->IsVisible()); });
    EXPECT_CALL(*presenter, OnHide()).WillOnce([this] { EXPECT_FALSE(view->IsVisible()); });
    view->Hide();
    view->Show();
    view->Show();
    view->Hide();
    view->Hide();
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(CertApproverWindowViewTest, OffTheQtThreadTheWholeShowingIsQueued)
{
    EXPECT_CALL(*presenter, OnShow()).Times(0);
    ShowOnAnotherThread();
    EXPECT_FALSE(view->IsVisible());
    ::testing::Mock::VerifyAndClearExpectations(presenter);

    EXPECT_CALL(*presenter, OnShow());
    QCoreApplication::processEvents();
    EXPECT_TRUE(view->IsVisible());
}

TEST_F(CertApproverWindowViewTest, AShowingThatOvertakesTheHidingOfTheLastAnswerIsNotLost)
{
    view->Show();
    // The next request comes in between the verdict and the hiding.
    EXPECT_CALL(*presenter, OnApproveActivated())
        .WillOnce(
            [this]
            {
                ShowOnAnotherThread();
                view->Hide();
            });
    view->Approve();
    EXPECT_FALSE(view->IsVisible());

    EXPECT_CALL(*presenter, OnShow());
    QCoreApplication::processEvents();
    EXPECT_TRUE(view->IsVisible());
}

TEST_F(CertApproverWindowViewTest, AQueuedShowingOfADeadViewIsDropped)
{
    ShowOnAnotherThread();
    EXPECT_CALL(*presenter, SetView(nullptr));
    EXPECT_CALL(*presenter, OnShow()).Times(0);
    view.reset();
    QCoreApplication::processEvents();
}

TEST_F(CertApproverWindowViewTest, QmlSeesOneSignalTwoSlotsAndOneProperty)
{
    const auto* meta = view->metaObject();
    EXPECT_STREQ(meta->className(), "cert_approver::ui::CertApproverWindowView");
    const int first = meta->methodOffset();
    ASSERT_EQ(meta->methodCount() - first, 3);
    EXPECT_EQ(meta->method(first).name(), "VisibleChanged");
    EXPECT_EQ(meta->method(first + 1).name(), "Close");
    EXPECT_EQ(meta->method(first + 2).name(), "Approve");
    EXPECT_FALSE(meta->property(meta->indexOfProperty("isVisible")).isWritable());
}

}  // namespace
}  // namespace cert_approver::ui
