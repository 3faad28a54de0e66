#include <linux/input-event-codes.h>

#include "approval_fixture.h"

namespace {

class Screen : public ApprovalFixture
{};

/// The whole dialog in the middle of the veil, nothing of it elsewhere.
bool IsInPlace(const QImage& screen)
{
    const QRect dialog = DialogOn(screen.size());
    const QRect around = dialog.adjusted(-1, -1, 1, 1);
    const QRect inside = dialog.adjusted(2, 2, -2, -2);
    const QPoint middle = dialog.center();
    const auto has = [&](QRgb colour, int x, int y)
    {
        return screen.pixel(x, y) == colour;
    };
    return has(Veil, 0, 0) && has(Veil, screen.width() - 1, screen.height() - 1) &&
           has(Veil, around.left(), middle.y()) && has(Veil, around.right(), middle.y()) &&
           has(Veil, middle.x(), around.top()) && has(Veil, middle.x(), around.bottom()) &&
           has(Black, inside.left(), middle.y()) && has(Black, inside.right(), middle.y()) &&
           has(Black, middle.x(), inside.top()) && has(Black, middle.x(), inside.bottom()) &&
           screen.pixel(BesideCaption(ApproveButtonOn(screen.size()))) == Purple &&
           screen.pixel(BesideCaption(CancelButtonOn(screen.size()))) == CancelGrey;
}

TEST_F(Screen, IsVeiledAllOverWithTheDialogInTheMiddle)
{
    const auto caller = AskAndWait("server.example");
    EXPECT_TRUE(display.WaitForScreen(IsInPlace));
    const auto toplevels = display.Toplevels();
    ASSERT_EQ(toplevels.size(), 1U);
    EXPECT_EQ(toplevels.front().title, "modalCertApprover");
    EXPECT_EQ(toplevels.front().size, QSize(1280, 800));
    // The corners of the dialog are round.
    EXPECT_EQ(display.Screen().pixel(DialogOn({1280, 800}).topLeft()), Veil);
}

TEST_F(Screen, MayChangeItsModeWhileTheDialogIsUp)
{
    const auto caller = AskAndWait("server.example");
    for (const QSize mode : {QSize(1920, 1080), QSize(1024, 768), QSize(652, 630)})
    {
        display.SetMode(0, mode);
        EXPECT_TRUE(display.WaitForScreen(IsInPlace)) << mode.width() << " x " << mode.height();
        EXPECT_EQ(display.Toplevels().back().size, mode);
    }
    EXPECT_TRUE(DialogShows("CN=server.example"));
    display.PressKey(KEY_ENTER);
    EXPECT_EQ(caller->ExitStatus(), 0);
}

TEST_F(Screen, SmallerThanTheDialogCutsItOffAndTakesKeys)
{
    const auto caller = AskAndWait("server.example");
    display.SetMode(0, {400, 300});
    const auto isCutOff = [](const QImage& screen)
    {
        return screen.width() == 400 && screen.pixel(0, 0) == PanelGrey;
    };
    EXPECT_TRUE(display.WaitForScreen(isCutOff));
    EXPECT_TRUE(DialogShows("CN=server.example"));
    display.PressKey(KEY_ESC);
    EXPECT_EQ(caller->ExitStatus(), 1);
}

TEST_F(Screen, StaysAsItIsWhileOtherOutputsComeAndGo)
{
    const auto caller = AskAndWait("server.example");
    const QImage before = display.Screen();
    const std::size_t second = display.AddOutput({800, 600});
    display.RemoveOutput(second);
    display.AddOutput({1024, 768});
    EXPECT_TRUE(DialogShows("CN=server.example"));
    EXPECT_EQ(display.Screen(), before);
    display.PressKey(KEY_ENTER);
    EXPECT_EQ(caller->ExitStatus(), 0);
}

}  // namespace
