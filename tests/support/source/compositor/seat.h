#pragma once

#include <set>
#include <string>
#include <vector>

#include <QPoint>

#include "object.h"
#include "surfaces.h"

namespace support::wayland {

/// One keyboard, with a US layout at first, and one pointer.
class Seat final
{
public:
    explicit Seat(wl_display* display);

    /// Gives the keyboard to a surface, or to none for null.
    void SetFocus(const SurfacePointer& surface);

    /// Goes to the surface in focus.
    void PressKey(std::uint32_t key);

    void MovePointer(const Spot& spot);

    /// Presses and releases the left button where the pointer is.
    void Click() const;

    /// Layouts by their names in xkb, parted by commas, and the one in use. Without any, the
    /// keyboard is the US one.
    void SetLayouts(const std::string& layouts);
    [[nodiscard]] const std::string& Layouts() const;
    [[nodiscard]] std::uint32_t Group() const;

    /// Takes the next layout, after the last one the first.
    void StepLayout();

private:
    using Devices = std::set<wl_resource*>;

    void Bind(const NewObject& object);
    static wl_resource* MakeDevice(Devices& devices, const NewObject& object);
    void MakeKeyboard(const NewObject& object);
    static std::vector<wl_resource*> DevicesOf(const SurfacePointer& surface,
                                               const Devices& devices);
    void SendGroup() const;
    [[nodiscard]] std::uint32_t NextSerial() const;

    wl_display* m_display;
    std::string m_layouts = "us";
    std::uint32_t m_group = 0;
    std::string m_keymap;
    Devices m_keyboards;
    Devices m_pointers;
    SurfacePointer m_focus;
    SurfacePointer m_pointed;
    Global m_global;
};

}  // namespace support::wayland
