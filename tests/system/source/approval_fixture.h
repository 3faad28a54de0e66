#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QRect>
#include <gmock/gmock.h>

#include <support/picture.h>
#include <support/terminal_session.h>
#include <tools/cert_approve/testing/make_certificate.h>

inline constexpr QRgb Veil = qRgb(0x08, 0x18, 0x28);
inline constexpr QRgb Black = qRgb(0, 0, 0);
inline constexpr QRgb Purple = qRgb(0x8c, 0x8c, 0xff);
inline constexpr QRgb CancelGrey = qRgb(0x1f, 0x1f, 0x1f);
inline constexpr QRgb PanelGrey = qRgb(0x19, 0x1b, 0x1e);

/// Where the dialog and its buttons lie on a screen of that size.
QRect DialogOn(QSize screen);
QRect ApproveButtonOn(QSize screen);
QRect CancelButtonOn(QSize screen);

/// A point of a button that shows its colour, beside the caption.
QPoint BesideCaption(const QRect& button);

/// How values of the information panel are drawn; its columns are equally wide.
support::TextStyle PanelValue();

using cert_approve::testing::CertificateSpec;
using cert_approve::testing::MakeCertificate;

/// A certificate of the year 2025, by "Example Authority", that says nothing particular but this
/// common name.
CertificateSpec Named(const std::string& commonName);

/// A terminal that is up, and what every test does with it.
class ApprovalFixture : public testing::Test
{
protected:
    explicit ApprovalFixture(const support::TerminalSetup& setup = {});

    /// Ends the terminal and looks for what is left of it.
    void TearDown() override;

    using Caller = std::unique_ptr<support::Process>;

    /// Starts a caller that asks about such a certificate.
    Caller Ask(const CertificateSpec& spec, std::vector<std::string> arguments = {});

    /// Waits for the dialog with the text in its panel.
    testing::AssertionResult DialogShows(const std::string& value);

    /// Starts a caller and waits for its dialog.
    Caller AskAndWait(const std::string& commonName);

    /// Starts a caller while another one's dialog is up, and waits until the service has taken its
    /// connection; its request follows at once.
    Caller AskBehind(const std::string& commonName);

    support::TerminalSession terminal;
    support::Compositor& display = terminal.Display();
};
