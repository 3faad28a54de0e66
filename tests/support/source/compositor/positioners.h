#pragma once

#include <map>
#include <memory>
#include <optional>

#include <QRect>

#include "object.h"

namespace support::wayland {

/// What clients say about the places of their popups. A popup gets the place that it asks for, also
/// where it would have to be moved to be seen as a whole: a test wants to see what was asked for.
class Positioners final
{
public:
    void Make(const NewObject& object);

    /// @returns the area that a positioner gives to its popup, relative to the popup's parent;
    ///          nothing where it does not say enough or says what cannot be
    [[nodiscard]] std::optional<QRect> Area(wl_resource* positioner) const;

private:
    struct Positioner
    {
        QSize size;
        QRect anchor;
        QPoint offset;
        std::uint32_t edges = 0;
        std::uint32_t gravity = 0;
    };

    std::map<wl_resource*, std::shared_ptr<const Positioner>> m_all;
};

}  // namespace support::wayland
