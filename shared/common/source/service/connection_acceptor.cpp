#include "connection_acceptor.h"

#include <charconv>
#include <string_view>
#include <utility>

#include <xo/connection.h>
#include <xo/result.h>

#include "guarded.h"

namespace tvo::service {
namespace {

/// What is over waits for the next turn, behind the requests of those who are in.
constexpr int DecisionsAtOnce = 16;

/// The platform puts "@pid.number" behind each client's name.
std::uint32_t PidOf(std::string_view client)
{
    std::uint32_t pid = 0;
    const std::string_view number = client.substr(client.rfind('@') + 1);
    std::from_chars(number.data(), number.data() + number.size(), pid);
    return pid;
}

bool IsAdmitted(const ConnectionAcceptor::Service& service, const std::string& client)
{
    bool admitted = service.admit == nullptr;
    if (!admitted)
    {
        Guarded("a decision about a client",
                [&] { admitted = service.admit(client, PidOf(client)); });
    }
    return admitted;
}

}  // namespace

void ConnectionAcceptor::Add(std::string name, Service service)
{
    m_services.insert_or_assign(std::move(name), std::move(service));
}

void ConnectionAcceptor::OnReady(Amount /*amount*/)
{
    char client[XoCmNameSize];
    char service[XoCmNameSize];
    for (int i = 0; i < DecisionsAtOnce && XoCmListen(nullptr, 0, client, service) == XoOk; ++i)
    {
        Decide(client, service);
    }
}

void ConnectionAcceptor::Decide(const char* client, const char* name) const
{
    const auto row = m_services.find(std::string_view(name));
    if (row == m_services.end() || !IsAdmitted(row->second, client))
    {
        TVO_LOG_DEBUG("{} is not let in to service {}", client, name);
        XoCmDrop(client, name);
        return;
    }
    const Service& service = row->second;
    std::uint32_t endpoint = service.endpoint;
    const int result = XoCmAccept(client, name, service.riid, service.endpoint, &endpoint);
    if (result != XoOk)
    {
        // Without the client's name, so that the lines of a crowd are joined.
        TVO_LOG_WARNING("A client cannot be let in to service {}: {:#x}",
                        name,
                        static_cast<std::uint32_t>(result));
        XoCmDrop(client, name);
    }
}

}  // namespace tvo::service
