#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "object.h"
#include "seat.h"

namespace support::wayland {

/// The extension tvo_keyboard over the layouts of the seat. It is not there before it is offered.
class LayoutControl final
{
public:
    LayoutControl(wl_display* display, Seat& seat);

    void Offer();

    /// Forgets the clients: they hear nothing more, and their requests are ignored for good.
    void Withdraw();

    /// Tells every client a layout, whatever the keyboard types.
    void Announce(std::uint32_t group, const std::string& layouts) const;

    /// Tells every client the layout of the keyboard.
    void Announce() const;

private:
    void Bind(const NewObject& object);

    wl_display* m_display;
    Seat& m_seat;
    std::set<wl_resource*> m_clients;
    bool m_offered = false;
    std::optional<Global> m_global;
};

}  // namespace support::wayland
