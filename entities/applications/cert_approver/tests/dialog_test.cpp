#include <QColor>
#include <QCoreApplication>
#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialog_fixture.h"
#include "ui/cert_approver_window/i_cert_approver_window_view.h"

namespace cert_approver {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char Fingerprint[] =
    "SHA-256 D4E8 B0AB 5C2F D60B F612 77A1 D72F 3B79 9C04 D852 80E0 D975 C647 DA99 0BAE DBBC";

class Dialog : public test::DialogFixture
{};

TEST_F(Dialog, EnterAndReturnAtOnceApproveAndEscapeCloses)
{
    Load();
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
    {
        Show();
        Press(key);
        EXPECT_FALSE(window->IsVisible());
        EXPECT_TRUE(QTest::qWaitFor([this] { return !HasDialog(); }));
    }
    EXPECT_THAT(setter->verdicts, ElementsAre(Verdict::Approve, Verdict::Approve, Verdict::Close));
}

TEST_F(Dialog, KeysGoToTheButtonThatTabHasReachedAndTheNextShowingBeginsAfresh)
{
    Load();
    Show();
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Cancel()->hasActiveFocus());
    Press(Qt::Key_Return);
    EXPECT_THAT(setter->verdicts, ElementsAre(Verdict::Close));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !HasDialog(); }));

    Show();
    EXPECT_TRUE(Approve()->hasActiveFocus());
    Press(Qt::Key_Tab);
    Press(Qt::Key_Escape);
    EXPECT_THAT(setter->verdicts, ElementsAre(Verdict::Close, Verdict::Close));
}

TEST_F(Dialog, ClicksCountOnTheButtonsOnly)
{
    Load();
    Show();
    Click({5, 5});
    Click({640, 120});
    EXPECT_THAT(setter->verdicts, IsEmpty());
    Click(Area(Cancel()).center());
    EXPECT_THAT(setter->verdicts, ElementsAre(Verdict::Close));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !HasDialog(); }));
    Show();
    Click(Area(Approve()).center());
    EXPECT_THAT(setter->verdicts, ElementsAre(Verdict::Close, Verdict::Approve));
}

TEST_F(Dialog, ClosingTheWindowRefusesWhileItIsUpAndPassesWhileItIsHidden)
{
    Load();
    Show();
    EXPECT_FALSE(quick->close());
    EXPECT_THAT(setter->verdicts, ElementsAre(Verdict::Close));
    EXPECT_FALSE(window->IsVisible());

    EXPECT_TRUE(quick->close());
    EXPECT_EQ(setter->verdicts.size(), 1U);
}

TEST_F(Dialog, FollowsTheScreen)
{
    Load();
    EXPECT_EQ(quick->size(), QSize(1280, 800));
    EXPECT_TRUE(quick->flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(quick->title(), QStringLiteral("modalCertApprover"));
    Show();
    ASSERT_EQ(resizer->registered.size(), 1U);
    resizer->registered.front().second(window, 1920, 1080);
    QCoreApplication::processEvents();
    EXPECT_EQ(quick->size(), QSize(1920, 1080));
    EXPECT_EQ(Area(Approve()).bottomRight(), QPoint(960 + 325 - 40 - 1, 540 + 314 - 40 - 1));
}

TEST_F(Dialog, CoversTheScreenWithAVeil)
{
    Load();
    Show();
    const auto* veil = All("QQuickRectangle").front();
    EXPECT_EQ(Area(veil), QRect(0, 0, 1280, 800));
    EXPECT_EQ(veil->property("color"), QColor(0, 0, 0, 0xC0));

    const auto picture = quick->grabWindow();
    EXPECT_EQ(picture.pixelColor(640, 90), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(Area(All("InformationPanel").front()).topLeft() + QPoint(20, 3)),
              QColor(QStringLiteral("#191B1E")));
    EXPECT_EQ(picture.pixelColor(Area(Approve()).topLeft() + QPoint(30, 5)),
              QColor(QStringLiteral("#8C8CFF")));
}

TEST_F(Dialog, ShowsMarkupAsItIs)
{
    getter->certificate = {.issuer = "<b>x</b><img src=\"file:///dev/zero\">",
                           .subject = "<h1>s</h1>",
                           .fingerprint = "<i>f</i>",
                           .address = "<a href=x>a</a>"};
    Load();
    Show();
    for (const auto& text : {getter->certificate.issuer,
                             getter->certificate.subject,
                             getter->certificate.fingerprint,
                             getter->certificate.address})
    {
        const auto* item = Text(QString::fromStdString(text));
        ASSERT_NE(item, nullptr) << text;
        EXPECT_EQ(item->property("textFormat").toInt(), static_cast<int>(Qt::PlainText)) << text;
    }
}

TEST_F(Dialog, LooksTheSameWhicheverOfTextsAndDialogComesFirst)
{
    getter->certificate = {.issuer = std::string(256, 'W'),
                           .subject = "CN=connect.terminal.example,O=Vantelore",
                           .fingerprint = Fingerprint,
                           .address = "connect.terminal.example:443"};
    Load();
    Show();
    const auto textsFirst = quick->grabWindow();

    auto* view = dynamic_cast<ui::ICertApproverWindowView*>(window.get());
    view->SetCertificateData(ui::CertViewData());
    QCoreApplication::processEvents();
    EXPECT_NE(quick->grabWindow(), textsFirst);

    view->SetCertificateData({.issuer = getter->certificate.issuer,
                              .subject = getter->certificate.subject,
                              .fingerprint = getter->certificate.fingerprint,
                              .address = getter->certificate.address});
    QCoreApplication::processEvents();
    EXPECT_EQ(quick->grabWindow(), textsFirst);
}

class DialogInALanguage : public test::DialogFixture,
                          public ::testing::WithParamInterface<const char*>
{};

TEST_P(DialogInALanguage, FitsToThePixelHoweverLongTheNamesAre)
{
    Load(GetParam());
    for (const auto length : {8U, 256U})
    {
        SCOPED_TRACE(length);
        getter->certificate = {.issuer = std::string(length, 'W'),
                               .subject = std::string(length, 'W'),
                               .fingerprint = Fingerprint,
                               .address = std::string(length, 'W')};
        Show();

        const auto panel = Area(All("InformationPanel").front());
        EXPECT_EQ(panel.x(), 355);
        EXPECT_EQ(panel.size(), QSize(570, 250));
        EXPECT_EQ(Area(Cancel()), QRect(555, 622, 100, 52));
        EXPECT_EQ(Area(Approve()), QRect(675, 622, 250, 52));
        EXPECT_TRUE(panel.contains(Area(Text(QLatin1String(Fingerprint)))));

        for (auto* item : All("QQuickText"))
        {
            EXPECT_FALSE(item->property("text").toString().startsWith(QLatin1Char('$')));
        }
        // The kit's second rank of text: the captions inside the panel, and the warning below it.
        const auto warning = Area(All("TextPromt").back());
        EXPECT_GT(warning.top(), panel.bottom());
        EXPECT_LT(warning.bottom(), Area(Approve()).top());

        Press(Qt::Key_Escape);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !HasDialog(); }));
    }
}

INSTANTIATE_TEST_SUITE_P(Languages,
                         DialogInALanguage,
                         ::testing::Values("en-US", "es-MX", "pt-BR", "ru-RU"));

}  // namespace
}  // namespace cert_approver
