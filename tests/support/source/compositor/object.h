#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>

#include <wayland-server-core.h>

namespace support::wayland {

/// What a client wants to have made.
struct NewObject
{
    wl_client* client;
    const wl_interface& interface;
    int version;
    std::uint32_t id;
};

using Arguments = const wl_argument*;
using Requests = std::map<std::string_view, std::function<void(Arguments)>>;

/// Makes an object of a client. Its requests are handled by their names; "destroy" and "release"
/// destroy it, and what is not in the table is taken and ignored, but for a request that makes a
/// new object: that one is a protocol error.
/// @param destroyed  runs while the object goes, also at the end of its client; may be empty
wl_resource* MakeObject(const NewObject& object,
                        Requests requests = {},
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
    using Bind = std::function<void(const NewObject&)>;

    Global(wl_display* display, const wl_interface& interface, int version, Bind bind);
    ~Global();

    Global(const Global&) = delete;
    Global& operator=(const Global&) = delete;

    /// Withdraws it; clients that have not heard of that yet may still bind it.
    void Remove();

private:
    static void Bound(wl_client* client, void* global, std::uint32_t version, std::uint32_t id);

    const wl_interface& m_interface;
    Bind m_bind;
    wl_global* m_global;
};

/// The time stamp of events.
inline std::uint32_t Milliseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(now / std::chrono::milliseconds(1));
}

}  // namespace support::wayland
