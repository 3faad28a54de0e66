#include <linux/input-event-codes.h>

#include "approval_fixture.h"

namespace {

class ConcurrentCallers : public ApprovalFixture
{
protected:
    /// Answers the dialog that is up and expects the verdict at this caller.
    void Answer(support::Process& caller, std::uint32_t key, const std::string& verdict)
    {
        display.PressKey(key);
        EXPECT_EQ(caller.ExitStatus(), verdict == "approve\n" ? 0 : 1);
        EXPECT_EQ(caller.Output(), verdict);
    }
};

TEST_F(ConcurrentCallers, TheSecondIsAskedForAfterTheFirst)
{
    const auto first = AskAndWait("first.example");
    const auto second = AskBehind("second.example");
    EXPECT_TRUE(DialogShows("CN=first.example"));
    Answer(*first, KEY_ENTER, "approve\n");
    ASSERT_TRUE(DialogShows("CN=second.example"));
    EXPECT_TRUE(second->Runs());
    Answer(*second, KEY_ESC, "close\n");
}

TEST_F(ConcurrentCallers, TheNextIsServedAfterTheAnswerToOneThatWasKilled)
{
    const auto killed = AskAndWait("killed.example");
    const auto next = AskBehind("next.example");
    killed->Kill();
    EXPECT_TRUE(DialogShows("CN=killed.example"));
    display.PressKey(KEY_ENTER);
    ASSERT_TRUE(DialogShows("CN=next.example"));
    EXPECT_TRUE(next->Runs()) << "the answer to the killed caller went to the next one";
    Answer(*next, KEY_ESC, "close\n");
}

TEST_F(ConcurrentCallers, NobodyIsAskedForOneThatWasKilledWhileItWaited)
{
    const auto first = AskAndWait("first.example");
    const auto killed = AskBehind("killed.example");
    const auto last = AskBehind("last.example");
    killed->Kill();
    Answer(*first, KEY_ENTER, "approve\n");
    ASSERT_TRUE(DialogShows("CN=last.example"));
    EXPECT_EQ(display.Showings(), 2);
    Answer(*last, KEY_ENTER, "approve\n");
    EXPECT_TRUE(display.WaitForNoToplevel());
    EXPECT_EQ(display.Showings(), 2);
}

}  // namespace
