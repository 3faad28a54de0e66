#include "positioners.h"

#include <array>

#include <xdg-shell-server-protocol.h>

namespace support::wayland {

namespace {

// Halves of a size to go right and down for an edge or a corner, in the order of the protocol:
// none, top, bottom, left, right, top left, bottom left, top right, bottom right.
constexpr std::array<QPoint, 9> Halves{
    {{1, 1}, {1, 0}, {1, 2}, {0, 1}, {2, 1}, {0, 0}, {0, 2}, {2, 0}, {2, 2}}};

QPoint Part(QSize size, QPoint halves)
{
    return {size.width() * halves.x() / 2, size.height() * halves.y() / 2};
}

}  // namespace

void Positioners::Make(const NewObject& object)
{
    const auto made = std::make_shared<Positioner>();
    wl_resource* self = MakeObject(object,
                                   {{"set_size",
                                     [made](Arguments a)
                                     {
                                         made->size = {a[0].i, a[1].i};
                                     }},
                                    {"set_anchor_rect",
                                     [made](Arguments a)
                                     {
                                         made->anchor = {a[0].i, a[1].i, a[2].i, a[3].i};
                                     }},
                                    {"set_anchor",
                                     [made](Arguments a)
                                     {
                                         made->edges = a[0].u;
                                     }},
                                    {"set_gravity",
                                     [made](Arguments a)
                                     {
                                         made->gravity = a[0].u;
                                     }},
                                    {"set_offset",
                                     [made](Arguments a)
                                     {
                                         made->offset = {a[0].i, a[1].i};
                                     }}},
                                   [this](wl_resource* gone) { m_all.erase(gone); });
    m_all[self] = made;
}

std::optional<QRect> Positioners::Area(wl_resource* positioner) const
{
    const auto& [size, anchor, offset, edges, gravity] = *m_all.at(positioner);
    if (size.isEmpty() || !anchor.isValid() || edges >= Halves.size() || gravity >= Halves.size())
    {
        return std::nullopt;
    }
    const QPoint held = anchor.topLeft() + Part(anchor.size(), Halves[edges]);
    return QRect(held + offset - Part(size, QPoint(2, 2) - Halves[gravity]), size);
}

}  // namespace support::wayland
