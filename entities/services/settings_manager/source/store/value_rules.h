#pragma once

#include <component/settings_manager/raw.h>

namespace settings_manager::service {

/// Makes sure that a value block is the one that its value has, so that equal values are equal
/// bytes, and takes the number of elements out of a list's, which the store counts itself.
/// @throws nvl::Error `InvalidIndex` for an unknown kind, `InvalidSize` for a block that is longer
///         or shorter than its value, `InvalidArgument` for bytes that belong to no value
void CheckValue(impl::Raw::Block& block);

}  // namespace settings_manager::service
