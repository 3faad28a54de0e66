#pragma once

#include <component/logger/tracer.h>
#include <component/plk/result_codes.h>
#include <wz/message.h>
#include <wz/transport.h>

namespace settings_manager::ipc {

/// What became of one call of the service.
struct Outcome
{
    const char* method;
    int transport;    ///< the transport's code
    int result;       ///< the service's
    bool isAnswered;  ///< by a reply that makes sense

    [[nodiscard]] int Code() const
    {
        return isAnswered ? result : plk::codes::MediaError;
    }

    [[nodiscard]] bool HasFailed() const
    {
        return Code() < 0;
    }
};

/// Raises the level of a tracer's lines.
void Raise(trace::Tracer& tracer, tvo::logger::LogLevel level);

/// Notes a failed call in the tracer; a good one leaves no trace.
/// @returns the outcome's code
int Report(const Outcome& outcome, trace::Tracer& tracer);

/// Notes a request or response whose data do not fit their arena.
/// @param message  for instance "Write request"
/// @returns `OutOfSpace`
int ReportArena(const char* message, trace::Tracer& tracer);

/// One blocking round trip whose headers are filled in up to the size words.
/// @returns the transport's code. A response arena of a failed call counts as full, since nobody
///          knows what was written there.
int Exchange(const WzTvoTransport& transport,
             const wz_message& request,
             const wz_arena* requestArena,
             wz_message& response,
             wz_arena* responseArena);

/// Calls the method that the request's type stands for.
template <class Request>
Outcome Call(const typename Request::Interface& client,
             Request& request,
             const wz_arena* requestArena,
             typename Request::Response& response,
             wz_arena* responseArena)
{
    request.base.iid = response.base.iid = client.riid;
    request.base.mid = response.base.mid = Request::Mid;
    request.base.size = sizeof(request);
    response.base.size = sizeof(response);
    const int code =
        Exchange(*client.transport, request.base, requestArena, response.base, responseArena);
    // Fails for the failed bit as well as for too short a reply.
    const bool isWhole = response.base.size == sizeof(response);
    return {Request::Name, code, response.result, code == 0 && isWhole};
}

}  // namespace settings_manager::ipc
