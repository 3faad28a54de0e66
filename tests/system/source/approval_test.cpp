#include <functional>

#include <linux/input-event-codes.h>

#include "approval_fixture.h"

namespace {

using support::Compositor;

constexpr QSize Screen(1280, 800);

class Approval : public ApprovalFixture
{};

using Action = std::function<void(Compositor&)>;

Action Keys(const std::vector<std::uint32_t>& keys)
{
    return [keys](Compositor& compositor)
    {
        for (const std::uint32_t key : keys)
        {
            compositor.PressKey(key);
        }
    };
}

Action ClickOn(const QRect& button)
{
    return [button](Compositor& compositor)
    {
        compositor.Click(button.center());
    };
}

struct Answer
{
    const char* name;
    Action give;
    int status;
};

const Answer Answers[] = {
    {"Enter at once", Keys({KEY_ENTER}), 0},
    {"Escape", Keys({KEY_ESC}), 1},
    {"Enter after a refusal", Keys({KEY_ENTER}), 0},
    {"Cancel", ClickOn(CancelButtonOn(Screen)), 1},
    {"Add certificate", ClickOn(ApproveButtonOn(Screen)), 0},
    {"the compositor's close request", [](Compositor& c) { c.RequestClose(); }, 1},
    {"Tab to Cancel and Enter", Keys({KEY_TAB, KEY_ENTER}), 1},
    {"the other Enter", Keys({KEY_KPENTER}), 0},
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
        ASSERT_EQ(caller->ExitStatus(), answer.status);
        EXPECT_EQ(caller->Output(), answer.status == 0 ? "approve\n" : "close\n");
        EXPECT_EQ(caller->Errors(), "");
        ASSERT_TRUE(display.WaitForNoToplevel());
        EXPECT_EQ(display.Showings(), ++showings);
    }
}

TEST_F(Approval, IsLeftOpenByAClickBesideTheDialog)
{
    const auto caller = AskAndWait("server.example");
    display.Click({10, 10});
    display.PressKey(KEY_ENTER);
    EXPECT_EQ(caller->ExitStatus(), 0);
    EXPECT_EQ(display.Showings(), 1);
}

TEST_F(Approval, ShowsNothingUntilSomebodyAsks)
{
    EXPECT_TRUE(display.Toplevels().empty());
    EXPECT_EQ(display.Showings(), 0);
    const QImage screen = display.Screen();
    EXPECT_EQ(screen.pixel(Screen.width() / 2, Screen.height() / 2), Compositor::Background);
}

}  // namespace
