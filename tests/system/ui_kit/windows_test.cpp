#include <algorithm>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <support/compositor.h>
#include <support/terminal_session.h>

namespace {

constexpr QRgb WindowColor = qRgb(0x40, 0x40, 0x40);
constexpr QRgb TooltipColor = qRgb(0x05, 0x05, 0x05);

class KitWindows : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_display.WaitForPixel({0, 0}, WindowColor));
    }

    void TearDown() override
    {
        EXPECT_TRUE(m_program.Runs());
        EXPECT_EQ(m_program.Errors(), m_said);
    }

    void ExpectPopup(std::vector<QRect> areas)
    {
        EXPECT_TRUE(support::Comes([&] { return m_display.Popups() == areas; }));
    }

    [[nodiscard]] bool BecomesOfColor(QPoint place, QRgb color)
    {
        return m_display.WaitForScreen([=](const QImage& screen)
                                       { return screen.pixel(place) == color; });
    }

    const QTemporaryDir m_temporary;
    const std::filesystem::path m_folder = m_temporary.path().toStdString();
    support::Compositor m_display{m_folder / "wayland", QSize(800, 600)};
    support::Process m_program{{TVO_KIT_WINDOW, {}, support::TerminalEnvironment(m_folder), {}}};
    std::string m_said;
};

}  // namespace

TEST_F(KitWindows, MenuOpensBesideItsButtonAndAChoiceClosesIt)
{
    m_display.Click({210, 110});
    ExpectPopup({{210, 110, 150, 100}});
    m_display.Click({285, 178});
    EXPECT_TRUE(m_program.WaitForText(m_said = "qml: chosen 1\n"));
    ExpectPopup({});
}

TEST_F(KitWindows, MenuThatTheCompositorTookAwayOpensAgain)
{
    for (int round = 0; round < 2; ++round)
    {
        m_display.Click({210, 110});
        ExpectPopup({{210, 110, 150, 100}});
        m_display.DismissPopups();
        ExpectPopup({});
    }
}

TEST_F(KitWindows, MenuWithoutRowsIsNoProtocolError)
{
    m_display.Click({210, 410});
    ExpectPopup({{210, 410, 150, 1}});
}

TEST_F(KitWindows, TooltipComesAfterAWhileAndGoesAtOnce)
{
    constexpr int Delay = 400;  // ms
    const QPoint inside(136 + 6 + 8, 330);
    qint64 leaving = Delay;
    for (int round = 0; round < 5 && leaving >= Delay; ++round)
    {
        QElapsedTimer time;
        time.start();
        m_display.MovePointer({50, 330});
        ASSERT_TRUE(BecomesOfColor(inside, TooltipColor));
        EXPECT_GE(time.elapsed(), Delay);
        const auto popups = m_display.Popups();
        ASSERT_EQ(popups.size(), 1u);
        EXPECT_EQ(popups[0].left(), 136);
        EXPECT_NEAR(popups[0].center().y(), 330, 1);

        time.start();
        m_display.MovePointer({600, 20});
        ASSERT_TRUE(BecomesOfColor(inside, WindowColor));
        leaving = std::min(leaving, time.elapsed());
        ExpectPopup({});
    }
    EXPECT_LT(leaving, Delay);
}
