#include "ism_reg_handler.h"

#include <tuple>

#include <component/settings_manager/tvo_ipc/limits.h>

#include "store/path_reader.h"

namespace settings_manager::service {
namespace {

using RegCallbackRequest = vx_settings_manager_WzISMReg_RegCallback_req;
using RegCallbackResponse = vx_settings_manager_WzISMReg_RegCallback_res;
using UnregCallbackRequest = vx_settings_manager_WzISMReg_UnregCallback_req;
using UnregCallbackResponse = vx_settings_manager_WzISMReg_UnregCallback_res;
using SubscribeRequest = vx_settings_manager_WzISMReg_Subscribe_req;
using SubscribeResponse = vx_settings_manager_WzISMReg_Subscribe_res;
using UnsubscribeRequest = vx_settings_manager_WzISMReg_Unsubscribe_req;
using UnsubscribeResponse = vx_settings_manager_WzISMReg_Unsubscribe_res;

}  // namespace

Outcome IsmRegHandler::Serve(const ServiceCall& call)
{
    switch (call.request->mid)
    {
        case RegCallbackRequest::Mid:
            return Call(*this, &IsmRegHandler::RegCallback, call);
        case UnregCallbackRequest::Mid:
            return Call(*this, &IsmRegHandler::UnregCallback, call);
        case SubscribeRequest::Mid:
            return Call(*this, &IsmRegHandler::Subscribe, call);
        case UnsubscribeRequest::Mid:
            return Call(*this, &IsmRegHandler::Unsubscribe, call);
        default:
            return Outcome::Reject;
    }
}

Outcome IsmRegHandler::RegCallback(const ServiceCall& call,
                                   const RegCallbackRequest& request,
                                   RegCallbackResponse& response)
{
    const auto name = TextIn(call, request.name, ipc::limits::CallbackName);
    const auto work = [&]
    {
        response.cid = m_contexts.Add(call.caller.connection);
        TVO_LOG_AS(tvo::logger::LogLevel::Debug,
                   "RegCallback",
                   "Process {} waits for updates on '{}'",
                   call.caller.pid,
                   *name);
    };
    return name ? Answer<RegCallbackRequest>(call, response, work) : Outcome::Reject;
}

Outcome IsmRegHandler::UnregCallback(const ServiceCall& call,
                                     const UnregCallbackRequest& request,
                                     UnregCallbackResponse& response)
{
    const auto work = [&]
    {
        std::ignore = OwnContext(call, request.cid);
        m_contexts.Remove(request.cid);
    };
    return Answer<UnregCallbackRequest>(call, response, work);
}

Outcome IsmRegHandler::Subscribe(const ServiceCall& call,
                                 const SubscribeRequest& request,
                                 SubscribeResponse& response)
{
    const auto text = TextIn(call, request.path, ipc::limits::Path);
    const auto work = [&]
    {
        std::ignore = OwnContext(call, request.cid);
        response.sid = m_contexts.Subscribe(request.cid, ReadPath(*text));
    };
    return text ? Answer<SubscribeRequest>(call, response, work) : Outcome::Reject;
}

Outcome IsmRegHandler::Unsubscribe(const ServiceCall& call,
                                   const UnsubscribeRequest& request,
                                   UnsubscribeResponse& response)
{
    const auto work = [&]
    {
        OwnContext(call, request.cid).Unsubscribe(request.sid);
    };
    return Answer<UnsubscribeRequest>(call, response, work);
}

Context& IsmRegHandler::OwnContext(const ServiceCall& call, std::uint64_t cid)
{
    Context& context = m_contexts.At(cid);
    if (context.Connection() != call.caller.connection)
    {
        throw nvl::Error(nvl::ItemMissing);
    }
    return context;
}

}  // namespace settings_manager::service
