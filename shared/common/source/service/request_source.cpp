#include "request_source.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include <component/plk/exceptions.h>
#include <tvo/service_locator.h>
#include <wz/endpoint.h>
#include <xo/handle.h>
#include <xo/result.h>

#include "guarded.h"

namespace tvo::service {
namespace {

/// As many as an endpoint takes, so that a round allocates nothing.
constexpr std::size_t MostClients = 1024;

constexpr std::size_t EndsAtOnce = 16;

std::size_t AtLeastAHeader(std::uint32_t size)
{
    return std::max<std::size_t>(size, sizeof(wz_message));
}

}  // namespace

RequestSource::RequestSource(const ServedInterface& served, InterfaceHandlers handlers)
    : m_handlers(std::move(handlers)),
      m_riid(served.riid),
      m_handleRoom(served.requestHandles << WzMessageHandleCountShift),
      m_request(AtLeastAHeader(served.largestRequest)),
      m_response(AtLeastAHeader(served.largestResponse)),
      m_requestArena(served.requestArena),
      m_responseArena(served.responseArena)
{
    m_servedClients.reserve(MostClients);
    OpenEndpoint(served);
    WzTvoSetTransportTimeouts(&m_transport, 0, WzInfinite);
}

void RequestSource::OpenEndpoint(const ServedInterface& served)
{
    std::uint32_t handle = XoInvalidHandle;
    if (served.reach == ServedInterface::Reach::StaticName)
    {
        handle = ServiceLocatorRegister(served.name.c_str(), nullptr, 0, &m_registration);
    }
    else
    {
        WzTvoEndpointCreate(&handle);
    }
    ZIN_CHECK(handle != XoInvalidHandle, "Cannot open an endpoint for " << served.name);
    WzTvoTransport_Init(&m_transport, handle, nullptr, 0);
}

RequestSource::~RequestSource()
{
    if (m_registration != 0)
    {
        ServiceLocatorUnregister(m_registration);
    }
    else
    {
        XoHandleClose(Endpoint());
    }
}

wz_message& RequestSource::Request()
{
    return *reinterpret_cast<wz_message*>(m_request.data());
}

wz_message& RequestSource::Response()
{
    return *reinterpret_cast<wz_message*>(m_response.data());
}

void RequestSource::OnReady(Amount amount)
{
    m_servedClients.clear();
    // Clients are served in turn: when one comes round again, all had theirs.
    while (ServeNext() == Step::Served && amount == Amount::OneOfEachClient &&
           m_servedClients.size() < MostClients)
    {}
    TellEnded();
}

RequestSource::Step RequestSource::ServeNext()
{
    Request().size = static_cast<std::uint32_t>(m_request.size()) | m_handleRoom;
    m_requestArena.Reset();
    m_responseArena.Reset();
    if (m_transport.operations->receive(&m_transport, &Request(), m_requestArena.Get()) != XoOk)
    {
        return Step::Nothing;
    }
    TellEnded();
    WzTvoPeer caller{};
    if (WzTvoTransportGetPeer(&m_transport, &caller) != XoOk)
    {
        CloseHandles();
        return Step::Served;
    }
    std::memset(m_response.data(), 0, m_response.size());
    Response() = {Request().iid, Request().mid, sizeof(wz_message), {}};
    const ServiceCall call{&Request(),
                           m_requestArena.Get(),
                           &Response(),
                           m_responseArena.Get(),
                           static_cast<std::uint32_t>(m_response.size()),
                           caller,
                           Ticket{Endpoint(), 0, m_transport.origin}};
    Reply(call, Handle(call));
    const bool again =
        std::find(m_servedClients.begin(), m_servedClients.end(), caller.connection) !=
        m_servedClients.end();
    m_servedClients.push_back(caller.connection);
    return again ? Step::SecondTime : Step::Served;
}

Outcome RequestSource::Handle(const ServiceCall& call)
{
    Outcome outcome = Outcome::Reject;
    if (call.request->iid != m_riid)
    {
        CloseHandles();
        return outcome;
    }
    const bool returned = Guarded("a request", [&] { outcome = m_handlers.serve(call); });
    return returned ? outcome : Outcome::Reject;
}

void RequestSource::Reply(const ServiceCall& call, Outcome outcome)
{
    if (outcome == Outcome::Defer)
    {
        Ticket ticket{};
        static_cast<void>(WzTvoTransportDetach(&m_transport, &ticket));
        return;
    }
    int result = XoInvalidArgument;
    if (outcome == Outcome::Answer)
    {
        result = m_transport.operations->reply(&m_transport, call.response, call.responseArena);
        // A caller that has gone is told as the end of its connection.
        if (result == XoInvalidArgument || result == XoTooBig)
        {
            TVO_LOG_ERROR("ServiceLoop: answer to method {} of interface {} cannot be sent: {:#x}",
                          call.request->mid,
                          m_riid,
                          static_cast<std::uint32_t>(result));
        }
    }
    if (result == XoInvalidArgument || result == XoTooBig)
    {
        Reject(*call.response);
    }
}

void RequestSource::Reject(wz_message& response)
{
    response = {Request().iid, Request().mid, sizeof(wz_message) | WzMessageFailedBit, {}};
    m_transport.operations->reply(&m_transport, &response, nullptr);
}

void RequestSource::TellEnded()
{
    std::array<std::uint64_t, EndsAtOnce> connections;
    unsigned long count = connections.size();
    while (count == connections.size() &&
           WzTvoEndpointGetEnded(Endpoint(), connections.size(), connections.data(), &count) ==
               XoOk)
    {
        for (unsigned long i = 0; i < count && m_handlers.connectionEnded; ++i)
        {
            Guarded("a connection's end", [&] { m_handlers.connectionEnded(connections[i]); });
        }
    }
}

/// For requests that do not come to their handler.
void RequestSource::CloseHandles()
{
    const std::size_t count =
        (Request().size & WzMessageHandleCountMask) >> WzMessageHandleCountShift;
    const auto* slots =
        reinterpret_cast<const wz_handle_slot*>(m_request.data() + sizeof(wz_message));
    for (std::size_t i = 0; i < count; ++i)
    {
        XoHandleClose(slots[i].handle);
    }
}

}  // namespace tvo::service
