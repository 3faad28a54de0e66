#include "network_watch.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <unistd.h>

namespace taskbar_preview {
namespace {

int OpenSocket()
{
    const int handle = ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE);
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV6_IFADDR;
    if (handle < 0 ||
        ::bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    {
        const std::error_code error(errno, std::generic_category());
        if (handle >= 0)
            ::close(handle);
        throw std::system_error(error, "rtnetlink");
    }
    return handle;
}

}  // namespace

NetworkWatch::NetworkWatch(std::function<void()> onChange)
    : m_socket(OpenSocket()),
      m_notifier(m_socket, QSocketNotifier::Read),
      m_onChange(std::move(onChange))
{
    QObject::connect(&m_notifier,
                     &QSocketNotifier::activated,
                     &m_notifier,
                     [this]
                     {
                         Drain();
                         m_onChange();
                     });
}

NetworkWatch::~NetworkWatch()
{
    m_notifier.setEnabled(false);
    ::close(m_socket);
}

/// What the messages say does not matter, nor that some were lost: all is read anew after them.
void NetworkWatch::Drain() const
{
    std::array<char, 8192> buffer{};
    while (::recv(m_socket, buffer.data(), buffer.size(), 0) > 0 || errno == ENOBUFS)
    {}
}

}  // namespace taskbar_preview
