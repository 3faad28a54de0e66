#include "cancel.h"

#include <component/plk/result_code_text.h>

#include "call.h"

namespace settings_manager::ipc {

int Cancel(vx_settings_manager_WzISM* client, std::uint64_t token, trace::Tracer& tracer)
{
    vx_settings_manager_WzISM_Cancel_req request{};
    vx_settings_manager_WzISM_Cancel_res response{};
    request.token = token;
    const Outcome outcome = Call(*client, request, nullptr, response, nullptr);
    tracer.LogImpl(tvo::logger::LogLevel::Warning,
                   ": {}(#{:16X}): wz = {}, zin = {}",
                   outcome.method,
                   token,
                   outcome.transport,
                   plk::zinx::ResultCodeText(outcome.result));
    return outcome.Code();
}

}  // namespace settings_manager::ipc
