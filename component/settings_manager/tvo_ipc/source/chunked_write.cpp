#include "chunked_write.h"

#include <component/settings_manager/tvo_ipc/nodes.h>

#include "call.h"
#include "cancel.h"
#include "zeroed_arena.h"

namespace settings_manager::ipc {

ChunkedWrite::ChunkedWrite(const vx_settings_manager_WzISM& client, trace::Tracer& tracer)
    : m_client(client), m_tracer(tracer)
{}

int ChunkedWrite::Run(std::uint8_t mode,
                      std::string_view path,
                      std::span<const impl::RawItem> items)
{
    const int result = SendFirst(mode, path, items);
    if (result < 0 || m_rest.empty())
    {
        return result;
    }
    m_tracer.PutResults("#{:16X}, ncount = {}", m_token, items.size());
    return SendRest();
}

int ChunkedWrite::SendFirst(std::uint8_t mode,
                            std::string_view path,
                            std::span<const impl::RawItem> items)
{
    vx_settings_manager_WzISM_Write_req request{};
    vx_settings_manager_WzISM_Write_res response{};
    ZeroedArena arena(limits::WriteArena);
    request.mode = mode;
    request.count = items.size();
    const bool hasPath = tvo::ipc::arena::WriteText(*arena.Get(), path, limits::Path, request.path);
    const auto packed = PackNodes(items, *arena.Get(), request.nodes);
    if (!hasPath || !packed)
    {
        return ReportArena("Write request", m_tracer);
    }
    m_rest = items.subspan(*packed);
    const int result = Report(Call(m_client, request, arena.Get(), response, nullptr), m_tracer);
    m_token = response.token;
    return result;
}

int ChunkedWrite::SendRest()
{
    ZeroedArena arena(limits::ChunkArena);
    int result = 0;
    while (result >= 0 && !m_rest.empty())
    {
        vx_settings_manager_WzISM_WriteNext_req request{};
        vx_settings_manager_WzISM_WriteNext_res response{};
        arena.Reset();
        const auto packed = PackNodes(m_rest, *arena.Get(), request.nodes);
        if (!packed)
        {
            Cancel(&m_client, m_token, m_tracer);
            return ReportArena("WriteNext request", m_tracer);
        }
        m_rest = m_rest.subspan(*packed);
        request.token = m_token;
        request.last = m_rest.empty() ? 1 : 0;
        const Outcome outcome = Call(m_client, request, arena.Get(), response, nullptr);
        if (outcome.HasFailed())
        {
            Cancel(&m_client, m_token, m_tracer);
        }
        result = Report(outcome, m_tracer);
    }
    return result;
}

}  // namespace settings_manager::ipc
