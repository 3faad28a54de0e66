#include <csignal>

#include <linux/input-event-codes.h>

#include "approval_fixture.h"

namespace {

using support::FindText;
using support::TextStyle;

constexpr TextStyle Title{.pixelSize = 24, .wrapWidth = 570};
constexpr char English[] = "Add certificate";
constexpr char Portuguese[] = "Adicionar certificado";
constexpr char Digits[] = "01.01.2025 00:00 - 01.01.2026 00:00";
constexpr char PersianDigits[] = "۰۱.۰۱.۲۰۲۵ ۰۰:۰۰ - ۰۱.۰۱.۲۰۲۶ ۰۰:۰۰";

class ApprovalSettings : public ApprovalFixture
{
protected:
    /// The application stays when the service goes.
    ApprovalSettings() : ApprovalFixture({.application = "needs = []\n"}) {}

    /// Asks, looks at the dialog and approves.
    void ExpectDialog(const char* title, const char* validity)
    {
        const auto caller = AskAndWait("server.example");
        const QImage screen = display.Screen();
        EXPECT_TRUE(FindText(screen, title, Title)) << title;
        EXPECT_TRUE(FindText(screen, validity, PanelValue())) << validity;
        display.PressKey(KEY_ENTER);
        EXPECT_EQ(caller->ExitStatus(), 0);
        EXPECT_TRUE(display.WaitForNoToplevel());
    }
};

TEST_F(ApprovalSettings, GiveDatesAtEachShowingAndTextsAtTheStart)
{
    ExpectDialog(English, Digits);
    terminal.Manager().SetLanguage("fa-IR");
    ExpectDialog(English, PersianDigits);
    terminal.Manager().SetLanguage("pt-BR");
    ExpectDialog(English, Digits);
    terminal.RestartApprover();
    ExpectDialog(Portuguese, Digits);
}

TEST_F(ApprovalSettings, AreNotNeededByADialog)
{
    terminal.Manager().SetLanguage("fa-IR");
    ExpectDialog(English, PersianDigits);
    const auto service = static_cast<pid_t>(terminal.Manager().StatusOf("settings").pid);
    kill(service, SIGKILL);
    terminal.Manager().WaitUntilReady("settings", service);
    ExpectDialog(English, Digits);
    ExpectDialog(English, Digits);
}

}  // namespace
