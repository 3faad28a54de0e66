#pragma once

#include <component/nvl/id_spec.h>

namespace settings_manager::meta {

/// The rules of all paths in the settings tree, valid for the life of the process.
[[nodiscard]] const nvl::IdSpec& GetIdSpecification();

}  // namespace settings_manager::meta
