#include <functional>

#include <linux/input-event-codes.h>

#include "approval_fixture.h"

namespace {

using support::Compositor;

constexpr QSize Screen(1280, 800);

class Approval : public ApprovalFixture
{};

struct Answer
{
    const char* name;
    std::function<void(Compositor&)> give;
    const char* verdict;
    int status;
};

const Answer Answers[] = {
    {"Enter at once", [](Compositor& c) { c.PressKey(KEY_ENTER); }, "approve\n", 0},
    {"Escape", [](Compositor& c) { c.PressKey(KEY_ESC); }, "close\n", 1},
    {"Enter after a refusal", [](Compositor& c) { c.PressKey(KEY_ENTER); }, "approve\n", 0},
    {"Cancel", [](Compositor& c) { c.Click(CancelButtonOn(Screen).center()); }, "close\n", 1},
    {"Add certificate",
     [](Compositor& c) { c.Click(ApproveButtonOn(Screen).center()); },
     "approve\n",
     0},
    {"the compositor's close request", [](Compositor& c) { c.RequestClose(); }, "close\n", 1},
    {"Tab to Cancel and Enter",
     [](Compositor& c)
     {
         c.PressKey(KEY_TAB);
         c.PressKey(KEY_ENTER);
     },
     "close\n",
     1},
    {"a click beside the dialog, then Enter",
     [](Compositor& c)
     {
         c.Click({10, 10});
         c.PressKey(KEY_ENTER);
     },
     "approve\n",
     0},
};

TEST_F(Approval, EachAnswerReachesItsCaller)
{
    int showings = 0;
    for (const Answer& answer : Answers)
    {
        SCOPED_TRACE(answer.name);
        const auto caller = AskAndWait("server.example");
        EXPECT_TRUE(caller->Runs());
        answer.give(display);
        EXPECT_EQ(caller->ExitStatus(), answer.status);
        EXPECT_EQ(caller->Output(), answer.verdict);
        EXPECT_EQ(caller->Errors(), "");
        EXPECT_TRUE(display.WaitForNoToplevel());
        EXPECT_EQ(display.Showings(), ++showings);
    }
}

TEST_F(Approval, ShowsNothingUntilSomebodyAsks)
{
    EXPECT_TRUE(display.Toplevels().empty());
    EXPECT_EQ(display.Showings(), 0);
    const QImage screen = display.Screen();
    EXPECT_EQ(screen.pixel(Screen.width() / 2, Screen.height() / 2), Compositor::Background);
}

}  // namespace
