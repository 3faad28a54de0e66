#include <component/logger/testing/recording_logger.h>

#include "window_fixture.h"

static void SetDocumentsPresent(bool present)
{
    if (present)
    {
        Q_INIT_RESOURCE(cert_approver_qml);
    }
    else
    {
        Q_CLEANUP_RESOURCE(cert_approver_qml);
    }
}

namespace cert_approver {
namespace {

constexpr char Fingerprint[] =
    "SHA-256 D4E8 B0AB 5C2F D60B F612 77A1 D72F 3B79 9C04 D852 80E0 D975 C647 DA99 0BAE DBBC";

using Dialog = test::WindowFixture;

TEST_F(Dialog, KeysAnswer)
{
    struct Row
    {
        std::vector<Qt::Key> keys;
        Verdict verdict;
    };
    const Row rows[] = {
        {{Qt::Key_Return}, Verdict::Approve},
        {{Qt::Key_Enter}, Verdict::Approve},
        {{Qt::Key_Escape}, Verdict::Close},
        {{Qt::Key_Tab, Qt::Key_Return}, Verdict::Close},
        {{Qt::Key_Tab, Qt::Key_Escape}, Verdict::Close},
        {{Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Enter}, Verdict::Approve},
    };
    Load("en-US");
    for (const auto& row : rows)
    {
        Show();
        for (const auto key : row.keys)
        {
            QTest::keyClick(quick, key);
        }
        EXPECT_EQ(Answer(), row.verdict);
    }
}

TEST_F(Dialog, IsInTheFirstPicture)
{
    Load("en-US");
    std::vector<bool> pictures;
    QObject::connect(quick,
                     &QQuickWindow::frameSwapped,
                     quick,
                     [&] { pictures.push_back(Approve() != nullptr); });
    Show();
    ASSERT_FALSE(pictures.empty());
    EXPECT_TRUE(pictures.front());
}

TEST_F(Dialog, IsBuiltAnewForARequestThatWaited)
{
    Load("en-US");
    Show();
    QTest::keyClick(quick, Qt::Key_Tab);
    ASSERT_TRUE(Cancel()->hasActiveFocus());
    view->Close();
    Show();
    EXPECT_TRUE(Approve()->hasActiveFocus());
}

TEST_F(Dialog, AClickBesideTheButtonsIsNoAnswer)
{
    Load("en-US");
    Show();
    QTest::mouseClick(quick, Qt::LeftButton, {}, {5, 5});
    EXPECT_TRUE(view->IsVisible());
    QTest::mouseClick(quick, Qt::LeftButton, {}, Area(Cancel()).center());
    EXPECT_EQ(Answer(), Verdict::Close);
}

TEST_F(Dialog, ClosingTheWindowRefusesWhileItIsUpAndPassesWhileItIsHidden)
{
    Load("en-US");
    Show();
    EXPECT_FALSE(quick->close());
    EXPECT_EQ(Answer(), Verdict::Close);
    EXPECT_TRUE(quick->close());
}

TEST_F(Dialog, LooksTheSameWhicheverOfTextsAndDialogComesFirst)
{
    const ui::CertViewData data{.issuer = std::string(256, 'W'),
                                .subject = "CN=connect.terminal.example,O=Vantelore",
                                .fingerprint = Fingerprint,
                                .address = "connect.terminal.example:443"};
    Load("en-US");
    view->SetCertificateData(ui::CertViewData());
    app.GetCertDataInteractor()->SetCertificateData(
        {data.issuer, data.subject, 0, 0, data.fingerprint, data.address});
    Show();
    const auto textsFirst = quick->grabWindow();
    view->SetCertificateData(ui::CertViewData());
    EXPECT_NE(quick->grabWindow(), textsFirst);
    view->SetCertificateData(data);
    EXPECT_EQ(quick->grabWindow(), textsFirst);
}

TEST_F(Dialog, WithoutItsDocumentThereIsNoWindow)
{
    const tvo::logger::testing::RecordingLogger log;
    engine.disconnect();
    SetDocumentsPresent(false);
    EXPECT_EQ(app.Factory()->CreateWindow(), nullptr);
    SetDocumentsPresent(true);
    EXPECT_TRUE(log.Contains(
        tvo::logger::LogLevel::Error,
        "Creation failed, with qrc:/qml/cert_approver/Window.qml is not loaded error!"));
}

struct DialogInALanguage : test::WindowFixture, ::testing::WithParamInterface<const char*>
{};

TEST_P(DialogInALanguage, FitsToThePixelAndShowsJustTheTextsHoweverLongTheyAre)
{
    Load(GetParam());
    for (const auto& text : {std::string("<b>x</b>"), std::string(256, 'W')})
    {
        SCOPED_TRACE(text);
        app.GetCertDataInteractor()->SetCertificateData({text, text, 0, 0, Fingerprint, text});
        Show();
        auto* panel = All("InformationPanel").value(0);
        EXPECT_EQ(Area(panel).x(), 115);
        EXPECT_EQ(Area(panel).size(), QSize(570, 250));
        EXPECT_EQ(Area(Cancel()), QRect(315, 622, 100, 52));
        EXPECT_EQ(Area(Approve()), QRect(435, 622, 250, 52));
        EXPECT_GT(Area(All("TextPromt").back()).top(), Area(panel).bottom());
        EXPECT_LT(Area(All("TextPromt").back()).bottom(), Area(Approve()).top());

        // Address, names, validity and fingerprint are the caller's and stay what they are.
        const auto labels = All("Value", panel) + All("YieldingValue", panel);
        ASSERT_EQ(labels.size(), 5);
        for (auto* label : labels)
        {
            EXPECT_EQ(label->property("textFormat").toInt(), static_cast<int>(Qt::PlainText));
            EXPECT_TRUE(Area(panel).contains(Area(label)));
        }
        for (auto* label : All("QQuickText"))
        {
            EXPECT_FALSE(label->property("text").toString().startsWith(QLatin1Char('$')));
        }
        view->Close();
        Answer();
    }
}

INSTANTIATE_TEST_SUITE_P(Languages,
                         DialogInALanguage,
                         ::testing::Values("en-US", "es-MX", "pt-BR", "ru-RU", ""));

}  // namespace
}  // namespace cert_approver
