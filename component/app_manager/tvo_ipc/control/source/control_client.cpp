#include "control_client.h"

#include <algorithm>
#include <utility>

#include <shared/ipc_utils/publish.h>
#include <xo/connection.h>
#include <xo/result.h>

namespace app_manager::control {
namespace {

using tvo::ipc::arena::Buffer;
using tvoipc_detail::api_v1::EndpointHandle;

constexpr const char* Silence = "the application manager does not answer";

/// More than any terminal runs: an end for a manager that goes on and on.
constexpr std::size_t MostEntries = 4096;

[[noreturn]] void ThrowNonsense()
{
    throw NoManager("the application manager's answer makes no sense");
}

std::uint32_t ToLimit(std::chrono::milliseconds span)
{
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(span.count(), 0, WzInfinite - 1));
}

void WriteName(std::string_view name, wz_arena& arena, tvo::ipc::arena::Reference& reference)
{
    if (name.empty() || !WriteText(arena, name, limits::Name, reference))
    {
        throw Refusal(refusals::UnknownName);
    }
}

}  // namespace

ControlClient::ControlClient(EndpointHandle endpoint, std::uint32_t limitMs)
    : m_endpoint(std::move(endpoint))
{
    WzTvoTransport_Init(&m_transport, m_endpoint.Handle(), nullptr, 0);
    WzTvoSetTransportTimeouts(&m_transport, 0, limitMs);
}

template <class Request, class Response>
void ControlClient::Call(std::uint16_t mid,
                         Request& request,
                         const wz_arena* requestArena,
                         Response& response,
                         wz_arena* responseArena) const
{
    request.base.iid = response.base.iid = m_endpoint.Riid();
    request.base.mid = response.base.mid = mid;
    request.base.size = sizeof(request);
    response.base.size = sizeof(response);
    // A transport record serves one thread at a time; a copy lets several call.
    WzTvoTransport mine = m_transport;
    const int code =
        mine.operations->call(&mine, &request.base, requestArena, &response.base, responseArena);
    if (code != XoOk)
    {
        throw NoManager(code == WzTimedOut ? Silence : "the application manager has gone");
    }
    // Fails for the failed bit as well as for too short a reply.
    if (response.base.size != sizeof(response))
    {
        ThrowNonsense();
    }
    if (response.result != 0)
    {
        throw Refusal(response.result);
    }
}

std::vector<Entry> ControlClient::List()
{
    std::vector<Entry> entries;
    std::size_t before = 0;
    ListResponse response{};
    do
    {
        before = entries.size();
        ListRequest request{};
        Buffer arena(limits::ListArena);
        request.first = static_cast<std::uint32_t>(before);
        Call(ListMid, request, nullptr, response, arena.Get());
        if (!ReadList(response, *arena.Get(), entries))
        {
            ThrowNonsense();
        }
        // A list that has become shorter meanwhile ends with an empty part.
    } while (entries.size() > before &&
             entries.size() < std::min<std::size_t>(response.total, MostEntries));
    return entries;
}

ApplicationStatus ControlClient::Status(std::string_view name)
{
    StatusRequest request{};
    StatusResponse response{};
    Buffer requestArena(limits::RequestArena);
    Buffer responseArena(limits::StatusArena);
    WriteName(name, *requestArena.Get(), request.name);
    Call(StatusMid, request, requestArena.Get(), response, responseArena.Get());
    auto status = ReadStatus(response, *responseArena.Get());
    if (!status)
    {
        ThrowNonsense();
    }
    return std::move(*status);
}

void ControlClient::Send(std::string_view name, Command command)
{
    CommandRequest request{};
    CommandResponse response{};
    Buffer arena(limits::RequestArena);
    WriteName(name, *arena.Get(), request.name);
    request.command = static_cast<std::uint8_t>(command);
    Call(CommandMid, request, arena.Get(), response, nullptr);
}

std::unique_ptr<IControlClient> ConnectControl(std::chrono::milliseconds patience,
                                               std::chrono::milliseconds limit)
{
    const auto target =
        ::shared::ipc_utils::FindConnectionTargetForType(InterfaceName, ToLimit(patience));
    if (!target)
    {
        throw NoManager("the application manager is not there");
    }
    std::uint32_t handle = XoInvalidHandle;
    std::uint32_t riid = tvoipc_detail::api_v1::InvalidRiid;
    const int result =
        XoCmConnect(target->first.data(), target->second.data(), ToLimit(limit), &handle, &riid);
    if (result != XoOk)
    {
        throw NoManager(result == XoTimedOut ? Silence : "the application manager lets nobody in");
    }
    return std::make_unique<ControlClient>(
        EndpointHandle(handle, EndpointHandle::Ownership::Owned, static_cast<std::uint16_t>(riid)),
        ToLimit(limit));
}

}  // namespace app_manager::control
