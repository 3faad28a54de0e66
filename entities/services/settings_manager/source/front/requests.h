#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include <component/logger/logger.h>
#include <component/nvl/error.h>
#include <component/plk/result_code_text.h>
#include <shared/common/tvo/ipc/arena/arena.h>
#include <shared/common/tvo/service/service_call.h>

namespace settings_manager::service {

using tvo::service::Outcome;
using tvo::service::ServiceCall;

/// Hands a request to the operation of its method, as the records of that method. A message of
/// another length makes no sense.
template <class Handler, class Request>
[[nodiscard]] Outcome Call(Handler& handler,
                           Outcome (Handler::*operation)(const ServiceCall&,
                                                         const Request&,
                                                         typename Request::Response&),
                           const ServiceCall& call)
{
    const auto* request = call.Request<Request>();
    return request == nullptr
               ? Outcome::Reject
               : (handler.*operation)(call, *request, call.Response<typename Request::Response>());
}

/// Does the work of a method. A refusal becomes the response's result, with all else in it empty.
template <class Request, class Work>
[[nodiscard]] Outcome Answer(const ServiceCall& call,
                             typename Request::Response& response,
                             Work&& work)
{
    try
    {
        std::forward<Work>(work)();
    }
    catch (...)
    {
        const auto [code, text] = nvl::ProcessException();
        TVO_LOG_DEBUG("{} of process {} refused: {}, {}",
                      Request::Name,
                      call.caller.pid,
                      plk::zinx::ResultCodeText(code),
                      text);
        const wz_message base = response.base;
        response = {};
        response.base = base;
        response.result = code;
        call.responseArena->current = call.responseArena->start;
    }
    return Outcome::Answer;
}

/// The text that a request refers to.
/// @returns nothing when the reference is bad or the text longer than the limit
[[nodiscard]] inline std::optional<std::string_view>
TextIn(const ServiceCall& call, const tvo::ipc::arena::Reference& reference, std::uint32_t limit)
{
    const auto text = tvo::ipc::arena::ReadText(*call.requestArena, reference);
    return text && text->size() <= limit ? text : std::nullopt;
}

}  // namespace settings_manager::service
