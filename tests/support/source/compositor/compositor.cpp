#include <array>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xdg-shell-server-protocol.h>

#include <support/compositor.h>

#include "layout_control.h"
#include "outputs.h"
#include "seat.h"
#include "surfaces.h"

namespace support {

namespace {

int Listen(const std::filesystem::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int end = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(end, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0 ||
        listen(end, SOMAXCONN) != 0)
    {
        throw std::runtime_error("Cannot listen at " + path.string());
    }
    return end;
}

}  // namespace

// One lock guards everything of libwayland: the thread holds it while it dispatches, the operations
// of the compositor while they look or send.
struct Compositor::Server final
{
    Server(const std::filesystem::path& socket, QSize mode)
        : outputs(display.get()),
          seat(display.get()),
          layoutControl(display.get(), seat),
          surfaces(display.get(),
                   [this]
                   {
                       const auto& stack = surfaces.Stack();
                       seat.SetFocus(stack.empty() ? nullptr : stack.back());
                   })
    {
        wl_display_init_shm(display.get());
        outputs.Add(mode);
        wl_display_add_socket_fd(display.get(), Listen(socket));
        thread = std::thread(&Server::Run, this);
    }

    ~Server()
    {
        eventfd_write(stop, 1);
        thread.join();
        close(stop);
        wl_display_destroy_clients(display.get());
    }

    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Does something to the clients, and sends what came of it at once.
    template <class Action>
    void Do(Action action)
    {
        const std::lock_guard lock(mutex);
        action();
        wl_display_flush_clients(display.get());
    }

    template <class Condition>
    bool WaitFor(Condition condition)
    {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, Patience, condition);
    }

    wayland::Surface& Top()
    {
        if (surfaces.Stack().empty())
        {
            throw std::runtime_error("No toplevel is shown");
        }
        return *surfaces.Stack().back();
    }

    // Qt makes a window active a round trip after it has got the keyboard, and loses keys that come
    // before; a person's never do.
    void Settle()
    {
        std::uint32_t serial = 0;
        Do([&] { serial = surfaces.Ping(Top()); });
        if (!WaitFor([&] { return surfaces.IsAnswered(serial); }))
        {
            throw std::runtime_error("The client does not answer");
        }
    }

    void Run()
    {
        wl_event_loop* loop = wl_display_get_event_loop(display.get());
        std::array<pollfd, 2> ends{pollfd{wl_event_loop_get_fd(loop), POLLIN, 0},
                                   pollfd{stop, POLLIN, 0}};
        while (poll(ends.data(), ends.size(), -1) < 0 || ends[1].revents == 0)
        {
            Do([loop] { wl_event_loop_dispatch(loop, 0); });
            changed.notify_all();
        }
    }

    std::unique_ptr<wl_display, decltype(&wl_display_destroy)> display{wl_display_create(),
                                                                       wl_display_destroy};
    int stop = eventfd(0, EFD_CLOEXEC);
    std::mutex mutex;
    std::condition_variable changed;
    wayland::Outputs outputs;
    wayland::Seat seat;
    wayland::LayoutControl layoutControl;
    wayland::Surfaces surfaces;
    std::thread thread;
};

Compositor::Compositor(const std::filesystem::path& socket, QSize mode)
    : m_server(std::make_unique<Server>(socket, mode))
{}

Compositor::~Compositor() = default;

void Compositor::SetMode(std::size_t output, QSize mode)
{
    m_server->Do([&] { m_server->outputs.SetMode(output, mode); });
}

std::size_t Compositor::AddOutput(QSize mode)
{
    std::size_t number = 0;
    m_server->Do([&] { number = m_server->outputs.Add(mode); });
    if (!m_server->WaitFor([&] { return m_server->outputs.IsKnown(number); }))
    {
        throw std::runtime_error("A client does not take the new output");
    }
    return number;
}

void Compositor::RemoveOutput(std::size_t output)
{
    m_server->Do([&] { m_server->outputs.Remove(output); });
}

void Compositor::PressKey(std::uint32_t key)
{
    m_server->Settle();
    m_server->Do([&] { m_server->seat.PressKey(key); });
}

void Compositor::Click(QPoint point)
{
    m_server->Settle();
    m_server->Do(
        [&]
        {
            m_server->seat.MovePointer(m_server->surfaces.At(point));
            m_server->seat.Click();
            m_server->seat.MovePointer({});
        });
}

void Compositor::MovePointer(QPoint point)
{
    m_server->Settle();
    m_server->Do([&] { m_server->seat.MovePointer(m_server->surfaces.At(point)); });
}

void Compositor::DismissPopups()
{
    m_server->Do([&] { m_server->surfaces.DismissPopups(); });
}

void Compositor::SetLayouts(const std::string& layouts)
{
    m_server->Do(
        [&]
        {
            m_server->seat.SetLayouts(layouts);
            m_server->layoutControl.Announce();
        });
}

void Compositor::OfferLayoutControl()
{
    m_server->Do([&] { m_server->layoutControl.Offer(); });
}

void Compositor::WithdrawLayoutControl()
{
    m_server->Do([&] { m_server->layoutControl.Withdraw(); });
}

void Compositor::AnnounceLayout(std::uint32_t group, const std::string& layouts)
{
    m_server->Do([&] { m_server->layoutControl.Announce(group, layouts); });
}

void Compositor::RequestClose()
{
    m_server->Do([&] { xdg_toplevel_send_close(m_server->Top().toplevel); });
}

std::vector<Compositor::Toplevel> Compositor::Toplevels() const
{
    std::vector<Toplevel> toplevels;
    const std::lock_guard lock(m_server->mutex);
    for (const auto& surface : m_server->surfaces.Stack())
    {
        toplevels.push_back({surface->title, surface->content.size()});
    }
    return toplevels;
}

std::vector<QRect> Compositor::Popups() const
{
    const std::lock_guard lock(m_server->mutex);
    return m_server->surfaces.Popups();
}

int Compositor::Showings() const
{
    const std::lock_guard lock(m_server->mutex);
    return m_server->surfaces.Showings();
}

QImage Compositor::Screen() const
{
    const std::lock_guard lock(m_server->mutex);
    return m_server->surfaces.Compose(m_server->outputs.Mode(0), Background);
}

bool Compositor::WaitForNoToplevel()
{
    return m_server->WaitFor([this] { return m_server->surfaces.Stack().empty(); });
}

bool Compositor::WaitForScreen(const std::function<bool(const QImage&)>& accepts)
{
    const auto& server = *m_server;
    return m_server->WaitFor(
        [&] { return accepts(server.surfaces.Compose(server.outputs.Mode(0), Background)); });
}

bool Compositor::WaitForPixel(QPoint place, QRgb color)
{
    const auto& stack = m_server->surfaces.Stack();
    return m_server->WaitFor(
        [&]
        {
            return !stack.empty() && stack.back()->content.valid(place) &&
                   stack.back()->content.pixel(place) == color;
        });
}

}  // namespace support
