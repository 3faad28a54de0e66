#pragma once

#include <cstdint>
#include <string_view>

#include "terminal/terminal.h"

namespace app_manager::service {

/// Looks up who reports: a report counts only from the process that the manager has started under
/// the application's name.
struct Reporter
{
    Reporter(Terminal& terminal, std::string_view name, std::uint32_t pid);

    ManagedChild* child;  ///< null: the report does not count
    int refusal = 0;      ///< then: why; 0 otherwise
};

}  // namespace app_manager::service
