#include "approval_fixture.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <thread>

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

ApprovalFixture::ApprovalFixture(const std::string& language) : terminal(language) {}

ApprovalFixture::Caller ApprovalFixture::Ask(const CertificateSpec& spec,
                                             std::vector<std::string> arguments)
{
    arguments.emplace_back("-");
    return terminal.Ask(arguments, MakeCertificate(spec).Pem());
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
           << value << " is not shown, see unexpected.png; the application wrote:\n"
           << terminal.Approver().Errors();
}

ApprovalFixture::Caller ApprovalFixture::AskAndWait(const std::string& commonName)
{
    Caller caller = Ask(Named(commonName));
    EXPECT_TRUE(DialogShows("CN=" + commonName)) << caller->Errors();
    return caller;
}

namespace {

std::size_t CountSockets(pid_t process)
{
    std::size_t count = 0;
    const auto folder = std::filesystem::path("/proc") / std::to_string(process) / "fd";
    for (const auto& entry : std::filesystem::directory_iterator(folder))
    {
        std::error_code gone;
        count += std::filesystem::read_symlink(entry, gone).string().starts_with("socket:") ? 1 : 0;
    }
    return count;
}

}  // namespace

ApprovalFixture::Caller ApprovalFixture::AskBehind(const std::string& commonName)
{
    const pid_t approver = terminal.Approver().Id();
    const std::size_t before = CountSockets(approver);
    Caller caller = Ask(Named(commonName));
    const auto deadline = std::chrono::steady_clock::now() + support::Patience;
    while (CountSockets(approver) == before)
    {
        if (std::chrono::steady_clock::now() > deadline)
        {
            throw std::runtime_error("The service does not take the connection of " + commonName);
        }
        std::this_thread::yield();
    }
    return caller;
}
