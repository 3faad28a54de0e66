#pragma once

#include <optional>

#include "node.h"

namespace settings_manager::service {

/// What one write has done: a setting before and after it, null where it was not there.
struct Change
{
    nvl::Path path;
    Snapshot before;
    Snapshot after;
    unsigned char kinds = 0;  ///< of `update`; 0 when the write has changed nothing
};

/// What a subscriber is told.
struct Update
{
    nvl::Path path;
    unsigned char kinds;
};

/// What the subscriber of a path has to be told of a change. Below that path the change is told
/// where it has happened; a change at or above it is told with the subscribed path and what it
/// means there.
[[nodiscard]] std::optional<Update> UpdateFor(const nvl::Path& subscribed, const Change& change);

}  // namespace settings_manager::service
