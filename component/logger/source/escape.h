#pragma once

#include <string>
#include <string_view>

namespace tvo::logger {

/// Makes one line of a text whatever it holds: control and invisible characters, and bytes that are
/// no UTF-8, are shown as escapes, so that nobody's text can pass for a line of its own.
std::string EscapeForLine(std::string_view text);

}  // namespace tvo::logger
