#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QImage>

#include <support/process.h>

namespace support {

/// A Wayland compositor without a screen, in a thread of the test. Toplevels lie at the origin, one
/// above the other in the order in which they came up, over a plain background; the topmost one has
/// the keyboard and, with its popups, the pointer. Popups lie where they ask to be.
///
/// All operations may be called from any thread. Those that wait return false when the time is up.
class Compositor final
{
public:
    static constexpr QRgb Background = qRgb(0x20, 0x60, 0xa0);

    struct Toplevel
    {
        std::string title;
        QSize size;
    };

    /// Listens at the path, which clients take as WAYLAND_DISPLAY. It has one output of that size
    /// at the origin, number 0. @throws std::runtime_error if it cannot be set up.
    Compositor(const std::filesystem::path& socket, QSize mode);
    ~Compositor();

    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;

    void SetMode(std::size_t output, QSize mode);

    /// Adds an output to the right of all others and waits until the clients know it: Qt crashes
    /// when an output goes before it has been looked at.
    /// @returns its number. @throws std::runtime_error when the time is up.
    std::size_t AddOutput(QSize mode);
    void RemoveOutput(std::size_t output);

    // The next four go to the topmost toplevel, and throw std::runtime_error if none is shown.
    // Keys and clicks wait until its client has taken in all that was sent before.

    /// Presses and releases a key of <linux/input-event-codes.h>, on a US keyboard at first.
    void PressKey(std::uint32_t key);

    /// Brings the pointer there, presses and releases the left button and takes the pointer away.
    void Click(QPoint point);

    /// Brings the pointer there and leaves it. Beyond the toplevel it is on nothing.
    void MovePointer(QPoint point);

    void RequestClose();

    /// Tells the clients that their popups are over, as when a person turns to something else.
    void DismissPopups();

    // The layouts of the keyboard, and what tvo_keyboard, once it is offered, tells of them.

    /// Gives the keyboard other layouts, by their names in xkb ("us,ru"), and takes the first.
    /// Without any it is a US keyboard. @throws std::runtime_error if xkb does not know one.
    void SetLayouts(const std::string& layouts);
    void OfferLayoutControl();
    void WithdrawLayoutControl();

    /// Tells the clients a layout, whatever the keyboard types.
    void AnnounceLayout(std::uint32_t group, const std::string& layouts);

    /// The toplevels that show something, the topmost one last.
    [[nodiscard]] std::vector<Toplevel> Toplevels() const;

    /// Where the popups that show something lie, each after the one that it belongs to.
    [[nodiscard]] std::vector<QRect> Popups() const;

    /// How many times a toplevel has come up so far.
    [[nodiscard]] int Showings() const;

    /// What the first output shows, as RGB32.
    [[nodiscard]] QImage Screen() const;

    [[nodiscard]] bool WaitForNoToplevel();

    /// Waits for a picture on the first output that the function accepts. It is called whenever
    /// something may have changed, in the waiting thread, and must not call the compositor.
    [[nodiscard]] bool WaitForScreen(const std::function<bool(const QImage&)>& accepts);

    /// Waits until the topmost toplevel has an opaque pixel of that colour at that place. Nothing
    /// is composed for it, so the return tells when the picture came.
    [[nodiscard]] bool WaitForPixel(QPoint place, QRgb color);

private:
    struct Server;

    std::unique_ptr<Server> m_server;
};

}  // namespace support
