#include "layout_control.h"

#include <tvo_keyboard-server-protocol.h>

namespace support::wayland {

LayoutControl::LayoutControl(wl_display* display, Seat& seat) : m_display(display), m_seat(seat) {}

void LayoutControl::Offer()
{
    m_offered = true;
    m_global.emplace(
        m_display, tvo_keyboard_interface, 1, [this](const NewObject& object) { Bind(object); });
}

void LayoutControl::Withdraw()
{
    m_offered = false;
    m_clients.clear();
    m_global->Remove();
}

void LayoutControl::Announce(std::uint32_t group, const std::string& layouts) const
{
    for (wl_resource* client : m_clients)
    {
        tvo_keyboard_send_update_layout(client, group, layouts.c_str());
    }
}

void LayoutControl::Announce() const
{
    Announce(m_seat.Group(), m_seat.Layouts());
}

void LayoutControl::Bind(const NewObject& object)
{
    const auto self = std::make_shared<wl_resource*>();
    const auto query = [this, self](Arguments /*none*/)
    {
        if (m_clients.contains(*self))
        {
            tvo_keyboard_send_update_layout(*self, m_seat.Group(), m_seat.Layouts().c_str());
        }
    };
    const auto change = [this, self](Arguments /*none*/)
    {
        if (m_clients.contains(*self))
        {
            m_seat.StepLayout();
            Announce();
        }
    };
    *self = MakeObject(object,
                       {{"change_layout", change}, {"query_layout", query}},
                       [this](wl_resource* gone) { m_clients.erase(gone); });
    // A client may bind what is withdrawn, as long as it has not heard of that.
    if (m_offered)
    {
        m_clients.insert(*self);
    }
}

}  // namespace support::wayland
