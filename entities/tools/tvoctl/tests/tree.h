#pragma once

#include <string_view>

#include "json_text.h"
#include "settings/json_form.h"

namespace tvoctl {

/// A tree from its JSON form.
inline settings_manager::Setting Tree(std::string_view json)
{
    return FromJson(ParseJson(json));
}

}  // namespace tvoctl
