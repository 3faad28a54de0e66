#pragma once

#include <string>

#include <component/plk/string_view.h>

namespace zin {

/// @returns the text of a general result code, "Unknown result code" for every other value
basic_string_view<char, char_traits<char>> rtl_result_code_message(int code) noexcept;

}  // namespace zin

namespace plk::zinx {

/// The text of a code of any facility, without the number; "Unknown result code" where there is
/// none. The view is valid for the life of the process.
zin::basic_string_view<char, zin::char_traits<char>> ResultCodeMessage(int code) noexcept;

/// The form in which log lines print a code: "Not found = 0x8000004c".
std::string ResultCodeText(int code);

}  // namespace plk::zinx
