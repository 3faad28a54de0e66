#pragma once

#include <string_view>
#include <vector>

namespace app_manager::proxy {

/// A text as the wire's methods take it.
inline std::vector<unsigned char> ToBytes(std::string_view text)
{
    return {text.begin(), text.end()};
}

}  // namespace app_manager::proxy
