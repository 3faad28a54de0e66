#pragma once

#include <set>
#include <string>
#include <vector>

#include <QPoint>

#include "object.h"
#include "surfaces.h"

namespace support::wayland {

/// One keyboard with a US layout and one pointer.
class Seat final
{
public:
    explicit Seat(wl_display* display);

    /// Gives the keyboard to a surface, or to none for null.
    void SetFocus(const SurfacePointer& surface);

    // Both go to the surface in focus. The pointer is there for the length of a click only.
    void PressKey(std::uint32_t key);
    void Click(QPoint point);

private:
    using Devices = std::set<wl_resource*>;

    void Bind(const NewObject& object);
    static wl_resource* MakeDevice(Devices& devices, const NewObject& object);
    void MakeKeyboard(const NewObject& object);
    [[nodiscard]] std::vector<wl_resource*> InFocus(const Devices& devices) const;
    [[nodiscard]] std::uint32_t NextSerial() const;

    wl_display* m_display;
    std::string m_keymap;
    Devices m_keyboards;
    Devices m_pointers;
    SurfacePointer m_focus;
    Global m_global;
};

}  // namespace support::wayland
