#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QImage>

#include "object.h"
#include "positioners.h"

namespace support::wayland {

/// A client's surface with its shell role and a copy of its latest content. The objects' pointers
/// are null once the client has destroyed them.
struct Surface
{
    wl_resource* surface = nullptr;
    wl_resource* shell = nullptr;
    wl_resource* shellSurface = nullptr;
    wl_resource* toplevel = nullptr;
    wl_resource* popup = nullptr;
    bool configured = false;
    wl_resource* pendingBuffer = nullptr;
    bool attached = false;
    std::vector<wl_resource*> frames;
    QImage content;
    std::string title;
    /// Of a popup: whose it is, and where it lies relative to that.
    std::shared_ptr<Surface> parent;
    QRect area;
    /// Its popups that are shown, the topmost one last.
    std::vector<std::shared_ptr<Surface>> popups;
};

using SurfacePointer = std::shared_ptr<Surface>;

/// A place on a surface; on none for null.
struct Spot
{
    SurfacePointer surface;
    QPoint place;
};

/// The surfaces of all clients, the toplevels and their popups among them, and the stack of what is
/// shown.
class Surfaces final
{
public:
    Surfaces(wl_display* display, std::function<void()> stackChanged);

    /// Shown toplevels, the topmost one last.
    [[nodiscard]] const std::vector<SurfacePointer>& Stack() const;

    /// Where the shown popups lie on the screen, each after the one that it belongs to.
    [[nodiscard]] std::vector<QRect> Popups() const;

    /// Asks the clients to take all popups away.
    void DismissPopups() const;

    /// What lies at that place of the screen, of the topmost toplevel and its popups.
    [[nodiscard]] Spot At(QPoint place) const;

    /// How many times a toplevel has come up so far.
    [[nodiscard]] int Showings() const;

    /// Sends a ping to the surface's client, which answers it after all events before.
    /// @returns the serial by which IsAnswered asks for the answer.
    std::uint32_t Ping(const Surface& surface) const;
    [[nodiscard]] bool IsAnswered(std::uint32_t serial) const;

    /// The stack over the background.
    [[nodiscard]] QImage Compose(QSize size, QRgb background) const;

private:
    void BindCompositor(const NewObject& object);
    void BindShell(const NewObject& object);
    void MakeSurface(const NewObject& object);
    void MakeShellSurface(wl_resource* shell, std::uint32_t id, wl_resource* resource);
    void MakeToplevel(const NewObject& object, const SurfacePointer& surface);
    void MakePopup(const NewObject& object,
                   const SurfacePointer& surface,
                   wl_resource* parent,
                   wl_resource* positioner);
    void Commit(const SurfacePointer& surface);
    void Show(const SurfacePointer& surface);
    void Hide(const SurfacePointer& surface);

    std::function<void()> m_stackChanged;
    std::map<wl_resource*, SurfacePointer> m_all;
    Positioners m_positioners;
    std::vector<SurfacePointer> m_stack;
    int m_showings = 0;
    std::uint32_t m_answered = 0;
    Global m_compositor;
    Global m_shell;
};

}  // namespace support::wayland
