#include "front/reporter.h"

#include <component/logger/logger.h>
#include <component/plk/result_codes.h>

namespace app_manager::service {

Reporter::Reporter(Terminal& terminal, std::string_view name, std::uint32_t pid)
    : child(terminal.FindApplication(name, pid))
{
    if (child != nullptr)
    {
        return;
    }
    const ManagedChild* const named = terminal.Find(name);
    const bool isKnown =
        named != nullptr && named->Supervision().Config().kind == control::Kind::Application;
    refusal = isKnown ? plk::codes::AccessDenied : plk::codes::NotFound;
    TVO_LOG_DEBUG("Process {} reports as {}, which it is not", pid, name);
}

}  // namespace app_manager::service
