#include "approval_fixture.h"

#include <algorithm>
#include <filesystem>

using support::TextStyle;

QRect DialogOn(QSize screen)
{
    constexpr QSize Dialog(650, 628);
    return {(screen.width() - Dialog.width()) / 2,
            (screen.height() - Dialog.height()) / 2,
            Dialog.width(),
            Dialog.height()};
}

QRect ApproveButtonOn(QSize screen)
{
    return {DialogOn(screen).topLeft() + QPoint(360, 536), QSize(250, 52)};
}

QRect CancelButtonOn(QSize screen)
{
    return {DialogOn(screen).topLeft() + QPoint(240, 536), QSize(100, 52)};
}

QPoint BesideCaption(const QRect& button)
{
    return {button.left() + 6, button.center().y()};
}

TextStyle PanelValue()
{
    return {.pixelSize = 14, .background = PanelGrey, .wrapWidth = 265};
}

CertificateSpec Named(const std::string& commonName)
{
    return {.subject = {{"CN", commonName}},
            .issuer = CertificateSpec::Name{{"CN", "Example Authority"}},
            .notBefore = "20250101000000Z",
            .notAfter = "20260101000000Z"};
}

ApprovalFixture::ApprovalFixture(const support::TerminalSetup& setup) : terminal(setup) {}

void ApprovalFixture::TearDown()
{
    EXPECT_EQ(terminal.Manager().End(), "");
}

ApprovalFixture::Caller ApprovalFixture::Ask(const CertificateSpec& spec,
                                             std::vector<std::string> arguments)
{
    arguments.emplace_back("-");
    return support::StartCaller(arguments, MakeCertificate(spec).Pem());
}

testing::AssertionResult ApprovalFixture::DialogShows(const std::string& value)
{
    const auto isShown = [&](const QImage& screen)
    {
        // The panel is in the middle of the dialog, and quicker to find than a text.
        const auto* middle = reinterpret_cast<const QRgb*>(screen.scanLine(screen.height() / 2));
        return std::count(middle, middle + screen.width(), PanelGrey) > 0 &&
               support::FindText(screen, value, PanelValue());
    };
    if (display.WaitForScreen(isShown))
    {
        return testing::AssertionSuccess();
    }
    display.Screen().save("unexpected.png");
    return testing::AssertionFailure()
           << value << " is not shown, see unexpected.png; the terminal wrote:\n"
           << terminal.Manager().Log();
}

ApprovalFixture::Caller ApprovalFixture::AskAndWait(const std::string& commonName)
{
    Caller caller = Ask(Named(commonName));
    EXPECT_TRUE(DialogShows("CN=" + commonName)) << caller->Errors();
    return caller;
}

namespace {

auto CountSockets(pid_t process)
{
    const auto folder = std::filesystem::path("/proc") / std::to_string(process) / "fd";
    const auto isSocket = [](const auto& entry)
    {
        std::error_code gone;
        return std::filesystem::read_symlink(entry, gone).string().starts_with("socket:");
    };
    const std::filesystem::directory_iterator all(folder);
    return std::count_if(begin(all), end(all), isSocket);
}

}  // namespace

ApprovalFixture::Caller ApprovalFixture::AskBehind(const std::string& commonName)
{
    const pid_t approver = terminal.Approver();
    const auto before = CountSockets(approver);
    Caller caller = Ask(Named(commonName));
    EXPECT_TRUE(support::Comes([&] { return CountSockets(approver) > before; }))
        << "The service does not take the connection of " << commonName;
    return caller;
}
