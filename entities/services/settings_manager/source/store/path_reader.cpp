#include "path_reader.h"

#include <fmt/format.h>

#include <component/nvl/error.h>
#include <component/nvl/path_text.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/path_to_str.h>
#include <component/settings_manager/tvo_ipc/limits.h>

#include "node.h"

namespace settings_manager::service {

nvl::Path ReadPath(std::string_view text)
{
    auto [path, state] = nvl::FromString(text, meta::GetIdSpecification());
    if (state != nvl::IdState::Ok)
    {
        throw nvl::Error(plk::codes::InvalidArgument,
                         fmt::format("bad path '{}', state = {}", text, state));
    }
    if (TextOf(path).size() > ipc::limits::Path)
    {
        throw nvl::Error(plk::codes::InvalidArgument, fmt::format("too long a path '{}'", text));
    }
    return std::move(path);
}

}  // namespace settings_manager::service
