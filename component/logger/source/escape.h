#pragma once

#include <string>
#include <string_view>

namespace tvo::logger {

/// Makes one line of a text whatever it holds: control and invisible characters, and bytes that are
/// no UTF-8, are shown as escapes, so that nobody's text can pass for a line of its own.
std::string EscapeForLine(std::string_view text);

/// Whether every byte is a printable ASCII character, so that there is nothing to escape. Much
/// quicker than to escape.
bool IsPlainAscii(std::string_view text);

}  // namespace tvo::logger
