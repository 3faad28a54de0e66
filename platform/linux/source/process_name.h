#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lock_file.h"

namespace platform {

/// The entity's name; nothing before the component tree was set.
std::optional<std::string> EntityName();

/// How this process calls itself towards servers: the entity's name, before that the program's.
std::string OwnName();

/// The endpoints of the component tree as lines of a lock file, behind the line of the process.
std::vector<LockFileLine> OwnLines();

/// From now on the component tree stays as it is.
void FixComponentTree();

}  // namespace platform
