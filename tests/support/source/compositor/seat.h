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

    /// Gives the keyboard to a surface, or to none for null; the pointer leaves the last one.
    void SetFocus(const SurfacePointer& surface);

    // Both go to the surface in focus.
    void PressKey(std::uint32_t key);
    void Click(QPoint point);

private:
    using Devices = std::set<wl_resource*>;

    void Bind(wl_client* client, int version, std::uint32_t id);
    wl_resource* MakeDevice(Devices& devices,
                            wl_client* client,
                            const wl_interface& interface,
                            int version,
                            std::uint32_t id);
    void MakeKeyboard(wl_client* client, int version, std::uint32_t id);
    [[nodiscard]] std::vector<wl_resource*> InFocus(const Devices& devices) const;
    [[nodiscard]] std::uint32_t NextSerial() const;
    void EnterKeyboard();
    void Leave();

    wl_display* m_display;
    std::string m_keymap;
    Devices m_keyboards;
    Devices m_pointers;
    SurfacePointer m_focus;
    bool m_pointerInside = false;
    Global m_global;
};

}  // namespace support::wayland
