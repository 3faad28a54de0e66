#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>

#include <wayland-server-core.h>

namespace support::wayland {

using Arguments = const wl_argument*;
using Requests = std::map<std::string_view, std::function<void(Arguments)>>;

/// Makes an object of a client. Its requests are handled by their names; "destroy" and "release"
/// destroy it, and what is not in the table is taken and ignored, but for a request that makes a
/// new object: that one is a protocol error.
/// @param destroyed  runs while the object goes, also at the end of its client; may be empty
wl_resource* MakeObject(wl_client* client,
                        const wl_interface& interface,
                        int version,
                        std::uint32_t id,
                        Requests requests,
                        std::function<void(wl_resource*)> destroyed = {});

/// The object that a request names at a place of its arguments.
inline wl_resource* ObjectAt(Arguments arguments, int place)
{
    return reinterpret_cast<wl_resource*>(arguments[place].o);
}

/// A global that clients can bind. To be destroyed before the display.
class Global final
{
public:
    using Bind = std::function<void(wl_client*, int version, std::uint32_t id)>;

    Global(wl_display* display, const wl_interface& interface, int version, Bind bind);
    ~Global();

    Global(const Global&) = delete;
    Global& operator=(const Global&) = delete;

    /// Withdraws it; clients that have not heard of that yet may still bind it.
    void Remove();

private:
    Bind m_bind;
    wl_global* m_global;
};

/// The time stamp of events.
inline std::uint32_t Milliseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

}  // namespace support::wayland
