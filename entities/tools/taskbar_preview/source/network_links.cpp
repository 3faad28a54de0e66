#include "network_links.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <system_error>

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

namespace taskbar_preview {
namespace {

/// An interface gives itself a link-local address; it says nothing about the network.
bool LeadsFurther(const sockaddr& address)
{
    if (address.sa_family == AF_INET)
    {
        const auto& v4 = reinterpret_cast<const sockaddr_in&>(address);
        return (ntohl(v4.sin_addr.s_addr) >> 16U) != 0xA9FE;
    }
    if (address.sa_family == AF_INET6)
    {
        const auto& v6 = reinterpret_cast<const sockaddr_in6&>(address);
        return !IN6_IS_ADDR_LINKLOCAL(&v6.sin6_addr);
    }
    return false;
}

}  // namespace

std::map<std::string, Link> ReadLinks()
{
    ifaddrs* first = nullptr;
    if (::getifaddrs(&first) != 0)
        throw std::system_error(errno, std::generic_category(), "getifaddrs");
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(first, &::freeifaddrs);

    std::map<std::string, Link> links;
    for (const auto* entry = first; entry != nullptr; entry = entry->ifa_next)
    {
        if ((entry->ifa_flags & IFF_LOOPBACK) != 0)
            continue;
        auto& link = links[entry->ifa_name];
        link.isUp |= (entry->ifa_flags & IFF_UP) != 0 && (entry->ifa_flags & IFF_RUNNING) != 0;
        link.hasAddress |= entry->ifa_addr != nullptr && LeadsFurther(*entry->ifa_addr);
    }
    return links;
}

NetworkStatus StatusOf(const std::map<std::string, Link>& links)
{
    auto status = NetworkStatus::CableDisconnected;
    for (const auto& [name, link] : links)
    {
        if (link.isUp)
        {
            status = std::max(
                status,
                link.hasAddress ? NetworkStatus::Connected : NetworkStatus::MediaLinkedNoIpAddress);
        }
    }
    return status;
}

}  // namespace taskbar_preview
