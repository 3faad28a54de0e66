#include "supervision/end_text.h"

#include <cstring>

#include <fmt/format.h>

namespace app_manager::service {

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
