#pragma once

#include <string_view>

#include "settings/json_form.h"
#include "settings/json_text.h"

namespace tvoctl {

/// A tree from its JSON form.
inline settings_manager::Setting Tree(std::string_view json)
{
    return FromJson(ParseJson(json));
}

}  // namespace tvoctl
