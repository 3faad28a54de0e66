#include "ism_cbk_handler.h"

#include <component/settings_manager/tvo_ipc/limits.h>

namespace settings_manager::service {
namespace {

using WaitRequest = vx_settings_manager_WzISMCbk_Wait_req;
using WaitResponse = vx_settings_manager_WzISMCbk_Wait_res;
using DoneRequest = vx_settings_manager_WzISMCbk_Done_req;
using DoneResponse = vx_settings_manager_WzISMCbk_Done_res;

void Pack(const Event& event, WaitResponse& response, wz_arena& arena)
{
    if (!tvo::ipc::arena::WriteText(arena, event.path, ipc::limits::Path, response.path))
    {
        throw nvl::Error(plk::codes::OutOfSpace, "path does not fit into a message");
    }
    response.sid = event.sid;
    response.update = event.kinds;
}

/// A request tells which answers have arrived before it.
void LearnWhatArrived(const ServiceCall& call, EventQueue& queue)
{
    const auto givenUp = queue.Confirm(call.caller.connection, call.caller.acknowledgedSequence);
    if (givenUp)
    {
        TVO_LOG_WARNING("Process {} has had update ${} of '{}' {} times and is not done with it",
                        call.caller.pid,
                        givenUp->sid,
                        givenUp->path,
                        EventQueue::MostDeliveries);
    }
}

/// A response without a call at hand.
WaitResponse EmptyResponse(std::uint16_t riid)
{
    WaitResponse response{};
    response.base.iid = riid;
    response.base.mid = WaitRequest::Mid;
    response.base.size = sizeof(response);
    return response;
}

}  // namespace

IsmCbkHandler::IsmCbkHandler(tvo::service::IServiceLoop& loop, ContextTable& contexts)
    : m_loop(loop), m_contexts(contexts), m_arena(ipc::limits::PathArena)
{}

Outcome IsmCbkHandler::Serve(const ServiceCall& call)
{
    switch (call.request->mid)
    {
        case WaitRequest::Mid:
            return Call(*this, &IsmCbkHandler::Wait, call);
        case DoneRequest::Mid:
            return Call(*this, &IsmCbkHandler::Done, call);
        default:
            return Outcome::Reject;
    }
}

void IsmCbkHandler::AnswerParked()
{
    m_contexts.TakeAnswerable([this](Context& context, const ParkedWait& wait)
                              { AnswerParked(context, wait); });
}

Outcome IsmCbkHandler::Wait(const ServiceCall& call,
                            const WaitRequest& request,
                            WaitResponse& response)
{
    bool isParked = false;
    const auto work = [&]
    {
        Context& context = m_contexts.At(request.cid);
        EventQueue& queue = context.Queue();
        LearnWhatArrived(call, queue);
        isParked = queue.IsEmpty();
        if (isParked)
        {
            Park(call, context);
        }
        else
        {
            Pack(queue.Deliver(call.caller.connection, call.Sequence()),
                 response,
                 *call.responseArena);
        }
    };
    const Outcome outcome = Answer<WaitRequest>(call, response, work);
    return isParked ? Outcome::Defer : outcome;
}

Outcome IsmCbkHandler::Done(const ServiceCall& call,
                            const DoneRequest& request,
                            DoneResponse& response)
{
    const auto work = [&]
    {
        if (!m_contexts.At(request.cid).Queue().Done(request.sid))
        {
            throw nvl::Error(nvl::ItemMissing);
        }
    };
    return Answer<DoneRequest>(call, response, work);
}

/// Of two waits at once the newer one counts. On the same connection the older one is void anyway.
void IsmCbkHandler::Park(const ServiceCall& call, Context& context)
{
    const auto older =
        context.Park({call.ticket, call.request->iid, call.caller.connection, call.Sequence()});
    if (older && older->connection != call.caller.connection)
    {
        Cancel(*older);
    }
}

/// A void ticket is that of a client which has gone or given up; it asks again or not at all.
void IsmCbkHandler::AnswerParked(Context& context, const ParkedWait& wait)
{
    WaitResponse response = EmptyResponse(wait.riid);
    m_arena.Reset();
    Pack(context.Queue().Deliver(wait.connection, wait.sequence), response, *m_arena.Get());
    m_loop.Answer(wait.ticket, &response.base, m_arena.Get());
}

void IsmCbkHandler::Cancel(const ParkedWait& wait)
{
    WaitResponse response = EmptyResponse(wait.riid);
    response.result = plk::codes::OperationCancelled;
    m_loop.Answer(wait.ticket, &response.base, nullptr);
}

}  // namespace settings_manager::service
