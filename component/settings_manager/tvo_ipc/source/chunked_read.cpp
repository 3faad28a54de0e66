#include "chunked_read.h"

#include <algorithm>

#include <component/settings_manager/tvo_ipc/nodes.h>

#include "call.h"
#include "cancel.h"
#include "mismatch.h"
#include "path_arena.h"
#include "zeroed_arena.h"

namespace settings_manager::ipc {

namespace {

/// Items for which room is made on the service's word alone.
constexpr std::uint64_t LargestReserve = 65536;

}  // namespace

ChunkedRead::ChunkedRead(const vx_settings_manager_WzISM& client, trace::Tracer& tracer)
    : m_client(client), m_tracer(tracer)
{}

int ChunkedRead::Run(std::string_view path)
{
    int result = ReadFirst(path);
    if (result >= 0 && m_items.size() < m_count)
    {
        m_tracer.PutResults("#{:16X}, ncount = {}", m_token, m_count);
        result = ReadRest();
    }
    if (result >= 0 && m_items.size() != m_count)
    {
        Raise(m_tracer, tvo::logger::LogLevel::Error);
        m_tracer.PutResults(
            " -> wrong RawSetting size: fact/plan = {}/{} ", m_items.size(), m_count);
        result = Mismatch;
    }
    return result;
}

int ChunkedRead::ReadFirst(std::string_view path)
{
    vx_settings_manager_WzISM_Read_req request{};
    vx_settings_manager_WzISM_Read_res response{};
    PathArena requestArena;
    request.mode = vx_settings_manager_WzISM_mode_read;
    if (!requestArena.Store(path, request.path))
    {
        return ReportArena("Read request", m_tracer);
    }
    ZeroedArena arena(limits::ChunkArena);
    const Outcome outcome = Call(m_client, request, requestArena.Get(), response, arena.Get());
    if (outcome.HasFailed())
    {
        return Report(outcome, m_tracer);
    }
    m_count = response.count;
    m_token = response.token;
    m_items.reserve(std::min(m_count, LargestReserve));
    return ReadNodes(*arena.Get(), response.nodes, m_items)
               ? outcome.Code()
               : ReportArena("Read response", m_tracer);
}

int ChunkedRead::ReadRest()
{
    ZeroedArena arena(limits::ChunkArena);
    int result = 0;
    bool isLast = false;
    while (result >= 0 && !isLast && m_items.size() <= m_count)
    {
        arena.Reset();
        result = ReadNext(*arena.Get(), isLast);
    }
    if (result >= 0 && !isLast)
    {
        // More items than promised are as wrong as fewer; no need to take them all in.
        Cancel(&m_client, m_token, m_tracer);
    }
    return result;
}

int ChunkedRead::ReadNext(wz_arena& arena, bool& isLast)
{
    vx_settings_manager_WzISM_ReadNext_req request{};
    vx_settings_manager_WzISM_ReadNext_res response{};
    request.token = m_token;
    const Outcome outcome = Call(m_client, request, nullptr, response, &arena);
    if (outcome.HasFailed())
    {
        Cancel(&m_client, m_token, m_tracer);
        return Report(outcome, m_tracer);
    }
    isLast = response.last == 1;
    if (!ReadNodes(arena, response.nodes, m_items))
    {
        Cancel(&m_client, m_token, m_tracer);
        return ReportArena("ReadNext response", m_tracer);
    }
    return outcome.Code();
}

}  // namespace settings_manager::ipc
