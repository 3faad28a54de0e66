#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include <component/nvl/path.h>
#include <component/settings_manager/setting.h>

namespace tvoctl {

/// A tree of settings and the place where it belongs.
struct Document
{
    nvl::Path path;
    settings_manager::Setting setting;
};

/// The JSON form of a path.
std::string PathForJson(const nvl::Path& path);

/// {"path": …, "setting": …}
nlohmann::json ToJson(const Document& document);

/// @throws Failure  BadUse, also for names that no path can have
Document DocumentFromJson(const nlohmann::json& json);

}  // namespace tvoctl
