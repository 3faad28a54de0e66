#include "call.h"

#include <algorithm>

#include <component/plk/result_code_text.h>

namespace settings_manager::ipc {

using tvo::logger::LogLevel;

void Raise(trace::Tracer& tracer, LogLevel level)
{
    tracer.SetLevel(std::max(tracer.Level(), level));
}

int Report(const Outcome& outcome, trace::Tracer& tracer)
{
    if (outcome.HasFailed())
    {
        Raise(tracer, outcome.isAnswered ? LogLevel::Warning : LogLevel::Error);
        tracer.PutResults(": {} call error: wz = {}, zin = {}",
                          outcome.method,
                          outcome.transport,
                          plk::zinx::ResultCodeText(outcome.result));
    }
    return outcome.Code();
}

int ReportArena(const char* message, trace::Tracer& tracer)
{
    Raise(tracer, LogLevel::Error);
    tracer.PutResults(": {} arena fail", message);
    return plk::codes::OutOfSpace;
}

int Exchange(const WzTvoTransport& transport,
             const wz_message& request,
             const wz_arena* requestArena,
             wz_message& response,
             wz_arena* responseArena)
{
    // A transport record serves one thread at a time; a copy lets several call on one connection.
    WzTvoTransport mine = transport;
    const int code = mine.operations->call(&mine, &request, requestArena, &response, responseArena);
    if (code != 0 && responseArena != nullptr)
    {
        responseArena->current = responseArena->end;
    }
    return code;
}

}  // namespace settings_manager::ipc
