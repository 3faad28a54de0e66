#include "supervision/end_text.h"

#include <cstring>

#include <fmt/format.h>

namespace app_manager::service {

const char* NameOf(control::EndKind kind)
{
    switch (kind)
    {
        case control::EndKind::Asked:
            return "stopped";
        case control::EndKind::Exit:
            return "exit";
        case control::EndKind::Crash:
            return "crash";
        case control::EndKind::Hang:
            return "hang";
        case control::EndKind::NotReady:
            return "not ready";
        case control::EndKind::InternalError:
            return "internal error";
        case control::EndKind::NotStarted:
            return "not started";
    }
    return "end";
}

std::string TextOf(const tvo::service::ChildEnd& end)
{
    if (end.byItself)
    {
        return fmt::format("exit status {}", end.status);
    }
    const char* const name = ::sigdescr_np(end.status);
    return fmt::format("signal {} ({})", end.status, name != nullptr ? name : "unknown");
}

}  // namespace app_manager::service
