#include "outputs.h"

#include <wayland-server-protocol.h>

namespace support::wayland {

Outputs::Outputs(wl_display* display) : m_display(display) {}

std::size_t Outputs::Add(QSize mode)
{
    auto output = std::make_unique<Output>();
    const int left = m_outputs.empty() ? 0 : m_outputs.back()->area.right() + 1;
    output->area = QRect(QPoint(left, 0), mode);
    const auto bind = [made = output.get()](const NewObject& object)
    {
        Bind(*made, object);
    };
    output->global = std::make_unique<Global>(m_display, wl_output_interface, 2, bind);
    m_outputs.push_back(std::move(output));
    return m_outputs.size() - 1;
}

void Outputs::Remove(std::size_t number)
{
    m_outputs.at(number)->global->Remove();
}

void Outputs::SetMode(std::size_t number, QSize mode)
{
    Output& output = *m_outputs.at(number);
    output.area.setSize(mode);
    for (wl_resource* resource : output.resources)
    {
        SendState(output, resource);
    }
}

QSize Outputs::Mode(std::size_t number) const
{
    return m_outputs.at(number)->area.size();
}

bool Outputs::IsKnown(std::size_t number) const
{
    return m_outputs.at(number)->resources.size() >= m_outputs.front()->resources.size();
}

void Outputs::Bind(Output& output, const NewObject& object)
{
    const auto destroyed = [&output](wl_resource* gone)
    {
        output.resources.erase(gone);
    };
    wl_resource* resource = MakeObject(object, {}, destroyed);
    output.resources.insert(resource);
    SendState(output, resource);
}

void Outputs::SendState(const Output& output, wl_resource* resource)
{
    constexpr int Refresh = 60'000;  // mHz
    const QRect& area = output.area;
    wl_output_send_geometry(resource, area.x(), area.y(), 0, 0, 0, "Test", "Test", 0);
    wl_output_send_mode(resource, WL_OUTPUT_MODE_CURRENT, area.width(), area.height(), Refresh);
    if (wl_resource_get_version(resource) >= WL_OUTPUT_DONE_SINCE_VERSION)
    {
        wl_output_send_done(resource);
    }
}

}  // namespace support::wayland
