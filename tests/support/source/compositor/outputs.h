#pragma once

#include <memory>
#include <set>
#include <vector>

#include <QRect>

#include "object.h"

namespace support::wayland {

/// The outputs, side by side from the origin to the right. Their numbers are never used again.
class Outputs final
{
public:
    explicit Outputs(wl_display* display);

    std::size_t Add(QSize mode);
    void Remove(std::size_t number);
    void SetMode(std::size_t number, QSize mode);

    [[nodiscard]] QSize Mode(std::size_t number) const;

    /// Whether every client that knows the first output knows this one too.
    [[nodiscard]] bool IsKnown(std::size_t number) const;

private:
    struct Output
    {
        QRect area;
        std::set<wl_resource*> resources;
        std::unique_ptr<Global> global;
    };

    static void Bind(Output& output, const NewObject& object);
    static void SendState(const Output& output, wl_resource* resource);

    wl_display* m_display;
    std::vector<std::unique_ptr<Output>> m_outputs;
};

}  // namespace support::wayland
