#include "surfaces.h"

#include <algorithm>
#include <utility>

#include <QPainter>
#include <wayland-server-protocol.h>
#include <xdg-shell-server-protocol.h>

namespace support::wayland {

namespace {

QImage CopyContent(wl_shm_buffer* buffer)
{
    const bool opaque = wl_shm_buffer_get_format(buffer) == WL_SHM_FORMAT_XRGB8888;
    wl_shm_buffer_begin_access(buffer);
    const QImage view(static_cast<const uchar*>(wl_shm_buffer_get_data(buffer)),
                      wl_shm_buffer_get_width(buffer),
                      wl_shm_buffer_get_height(buffer),
                      wl_shm_buffer_get_stride(buffer),
                      opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    QImage copy = view.copy();
    wl_shm_buffer_end_access(buffer);
    return copy;
}

// Lets a toplevel show itself, in a size of its own choice.
void Configure(Surface& surface)
{
    std::uint32_t activated = XDG_TOPLEVEL_STATE_ACTIVATED;
    wl_array states{sizeof(activated), sizeof(activated), &activated};
    xdg_toplevel_send_configure(surface.toplevel, 0, 0, &states);
    wl_display* display = wl_client_get_display(wl_resource_get_client(surface.surface));
    xdg_surface_send_configure(surface.shellSurface, wl_display_next_serial(display));
    surface.configured = true;
}

}  // namespace

Surfaces::Surfaces(wl_display* display, std::function<void()> stackChanged)
    : m_stackChanged(std::move(stackChanged)),
      m_compositor(display,
                   wl_compositor_interface,
                   4,
                   [this](const NewObject& object) { BindCompositor(object); }),
      m_shell(display,
              xdg_wm_base_interface,
              1,
              [this](const NewObject& object) { BindShell(object); })
{}

const std::vector<SurfacePointer>& Surfaces::Stack() const
{
    return m_stack;
}

int Surfaces::Showings() const
{
    return m_showings;
}

std::uint32_t Surfaces::Ping(const Surface& surface) const
{
    wl_client* client = wl_resource_get_client(surface.shell);
    const std::uint32_t serial = wl_display_next_serial(wl_client_get_display(client));
    xdg_wm_base_send_ping(surface.shell, serial);
    return serial;
}

bool Surfaces::IsAnswered(std::uint32_t serial) const
{
    return m_answered == serial;
}

QImage Surfaces::Compose(QSize size, QRgb background) const
{
    QImage screen(size, QImage::Format_RGB32);
    screen.fill(background);
    QPainter painter(&screen);
    for (const SurfacePointer& surface : m_stack)
    {
        painter.drawImage(0, 0, surface->content);
    }
    return screen;
}

void Surfaces::BindCompositor(const NewObject& object)
{
    const auto createSurface = [this, client = object.client, version = object.version](Arguments a)
    {
        MakeSurface({client, wl_surface_interface, version, a[0].n});
    };
    const auto createRegion = [client = object.client](Arguments a)
    {
        MakeObject({client, wl_region_interface, 1, a[0].n});
    };
    MakeObject(object, {{"create_surface", createSurface}, {"create_region", createRegion}});
}

void Surfaces::BindShell(const NewObject& object)
{
    const auto shell = std::make_shared<wl_resource*>();
    const auto getSurface = [this, shell](Arguments a)
    {
        MakeShellSurface(*shell, a[0].n, ObjectAt(a, 1));
    };
    const auto pong = [this](Arguments a)
    {
        m_answered = a[0].u;
    };
    *shell = MakeObject(object, {{"get_xdg_surface", getSurface}, {"pong", pong}});
}

void Surfaces::MakeSurface(const NewObject& object)
{
    const auto surface = std::make_shared<Surface>();
    const auto attach = [surface](Arguments a)
    {
        surface->pendingBuffer = ObjectAt(a, 0);
        surface->attached = true;
    };
    const auto frame = [surface, client = object.client](Arguments a)
    {
        surface->frames.push_back(MakeObject({client, wl_callback_interface, 1, a[0].n}));
    };
    const auto commit = [this, surface](Arguments /*none*/)
    {
        Commit(surface);
    };
    const auto destroyed = [this, surface](wl_resource* gone)
    {
        surface->surface = nullptr;
        m_all.erase(gone);
        Hide(surface);
    };
    surface->surface =
        MakeObject(object, {{"attach", attach}, {"frame", frame}, {"commit", commit}}, destroyed);
    m_all[surface->surface] = surface;
}

void Surfaces::MakeShellSurface(wl_resource* shell, std::uint32_t id, wl_resource* resource)
{
    wl_client* client = wl_resource_get_client(shell);
    const SurfacePointer surface = m_all.at(resource);
    const auto getToplevel = [=, this](Arguments a)
    {
        MakeToplevel({client, xdg_toplevel_interface, 1, a[0].n}, surface);
    };
    const auto destroyed = [surface](wl_resource* /*gone*/)
    {
        surface->shellSurface = nullptr;
    };
    surface->shell = shell;
    surface->shellSurface = MakeObject(
        {client, xdg_surface_interface, 1, id}, {{"get_toplevel", getToplevel}}, destroyed);
}

void Surfaces::MakeToplevel(const NewObject& object, const SurfacePointer& surface)
{
    const auto setTitle = [surface](Arguments a)
    {
        surface->title = a[0].s;
    };
    const auto destroyed = [this, surface](wl_resource* /*gone*/)
    {
        surface->toplevel = nullptr;
        Hide(surface);
    };
    surface->toplevel = MakeObject(object, {{"set_title", setTitle}}, destroyed);
}

void Surfaces::Commit(const SurfacePointer& surface)
{
    if (std::exchange(surface->attached, false))
    {
        if (surface->pendingBuffer != nullptr)
        {
            surface->content = CopyContent(wl_shm_buffer_get(surface->pendingBuffer));
            wl_buffer_send_release(surface->pendingBuffer);
            Show(surface);
        }
        else
        {
            Hide(surface);
        }
    }
    else if (surface->toplevel != nullptr && !surface->configured)
    {
        Configure(*surface);
    }
    for (wl_resource* frame : std::exchange(surface->frames, {}))
    {
        wl_callback_send_done(frame, Milliseconds());
        wl_resource_destroy(frame);
    }
}

void Surfaces::Show(const SurfacePointer& surface)
{
    const bool shown = std::find(m_stack.begin(), m_stack.end(), surface) != m_stack.end();
    if (surface->toplevel != nullptr && !shown)
    {
        m_stack.push_back(surface);
        ++m_showings;
        m_stackChanged();
    }
}

void Surfaces::Hide(const SurfacePointer& surface)
{
    surface->configured = false;
    if (std::erase(m_stack, surface) != 0)
    {
        m_stackChanged();
    }
}

}  // namespace support::wayland
