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

// Lets a toplevel show itself, in a size of its own choice, or a popup where it wants to be.
void Configure(Surface& surface)
{
    if (surface.popup != nullptr)
    {
        const QRect& area = surface.area;
        xdg_popup_send_configure(surface.popup, area.x(), area.y(), area.width(), area.height());
    }
    else
    {
        std::uint32_t activated = XDG_TOPLEVEL_STATE_ACTIVATED;
        wl_array states{sizeof(activated), sizeof(activated), &activated};
        xdg_toplevel_send_configure(surface.toplevel, 0, 0, &states);
    }
    wl_display* display = wl_client_get_display(wl_resource_get_client(surface.surface));
    xdg_surface_send_configure(surface.shellSurface, wl_display_next_serial(display));
    surface.configured = true;
}

// Goes through a surface and all its popups, each with its corner on the screen, from below.
void Visit(const SurfacePointer& surface,
           QPoint corner,
           const std::function<void(const SurfacePointer&, QPoint)>& visit)
{
    visit(surface, corner);
    for (const SurfacePointer& popup : surface->popups)
    {
        Visit(popup, corner + popup->area.topLeft(), visit);
    }
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

std::vector<QRect> Surfaces::Popups() const
{
    std::vector<QRect> popups;
    const auto add = [&popups](const SurfacePointer& surface, QPoint corner)
    {
        if (surface->popup != nullptr)
        {
            popups.emplace_back(corner, surface->content.size());
        }
    };
    for (const SurfacePointer& toplevel : m_stack)
    {
        Visit(toplevel, {}, add);
    }
    return popups;
}

void Surfaces::DismissPopups() const
{
    for (const auto& [resource, surface] : m_all)
    {
        if (surface->popup != nullptr)
        {
            xdg_popup_send_popup_done(surface->popup);
        }
    }
}

Spot Surfaces::At(QPoint place) const
{
    Spot spot;
    const auto look = [&](const SurfacePointer& surface, QPoint corner)
    {
        if (surface->content.valid(place - corner))
        {
            spot = {surface, place - corner};
        }
    };
    if (!m_stack.empty())
    {
        Visit(m_stack.back(), {}, look);
    }
    return spot;
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
    const auto draw = [&painter](const SurfacePointer& surface, QPoint corner)
    {
        painter.drawImage(corner, surface->content);
    };
    for (const SurfacePointer& toplevel : m_stack)
    {
        Visit(toplevel, {}, draw);
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
    const auto createPositioner = [this, client = object.client](Arguments a)
    {
        m_positioners.Make({client, xdg_positioner_interface, 1, a[0].n});
    };
    *shell = MakeObject(
        object,
        {{"get_xdg_surface", getSurface}, {"create_positioner", createPositioner}, {"pong", pong}});
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
    const auto getPopup = [=, this](Arguments a)
    {
        MakePopup(
            {client, xdg_popup_interface, 1, a[0].n}, surface, ObjectAt(a, 1), ObjectAt(a, 2));
    };
    const auto destroyed = [surface](wl_resource* /*gone*/)
    {
        surface->shellSurface = nullptr;
    };
    surface->shell = shell;
    surface->shellSurface = MakeObject({client, xdg_surface_interface, 1, id},
                                       {{"get_toplevel", getToplevel}, {"get_popup", getPopup}},
                                       destroyed);
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

void Surfaces::MakePopup(const NewObject& object,
                         const SurfacePointer& surface,
                         wl_resource* parent,
                         wl_resource* positioner)
{
    const auto found = std::find_if(m_all.begin(),
                                    m_all.end(),
                                    [parent](const auto& candidate)
                                    { return candidate.second->shellSurface == parent; });
    const auto area = m_positioners.Area(positioner);
    if (parent == nullptr || found == m_all.end() || !area)
    {
        // As in every session, such a client is thrown out.
        wl_resource_post_error(
            surface->shell, XDG_WM_BASE_ERROR_INVALID_POSITIONER, "No place for a popup");
        return;
    }
    const auto destroyed = [this, surface](wl_resource* /*gone*/)
    {
        Hide(surface);
        surface->popup = nullptr;
        surface->parent = nullptr;
    };
    surface->parent = found->second;
    surface->area = *area;
    surface->popup = MakeObject(object, {}, destroyed);
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
    else if ((surface->toplevel != nullptr || surface->popup != nullptr) && !surface->configured)
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
    if (surface->toplevel == nullptr && surface->popup == nullptr)
    {
        return;
    }
    auto& shown = surface->popup != nullptr ? surface->parent->popups : m_stack;
    if (std::find(shown.begin(), shown.end(), surface) != shown.end())
    {
        return;
    }
    shown.push_back(surface);
    if (surface->toplevel != nullptr)
    {
        ++m_showings;
        m_stackChanged();
    }
}

void Surfaces::Hide(const SurfacePointer& surface)
{
    surface->configured = false;
    if (surface->parent)
    {
        std::erase(surface->parent->popups, surface);
    }
    if (std::erase(m_stack, surface) != 0)
    {
        m_stackChanged();
    }
}

}  // namespace support::wayland
