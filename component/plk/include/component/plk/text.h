#pragma once

#include <string>

#include <component/plk/string.h>
#include <component/plk/string_view.h>

namespace zin::text {

/// Conversion between texts. What is narrow is read and written in the encoding of the process's C
/// locale (LC_CTYPE), so a program sets "C.UTF-8" first of all.
/// @throws std::bad_cast for text that has no counterpart on the other side
template <class To, class From>
To Cast(const From& from) = delete;

template <>
std::string Cast<std::string>(const types::string16_t& from);

/// A null pointer gives an empty string.
template <>
types::string16_t Cast<types::string16_t>(const char* const& from);

/// A zero byte inside the view counts as a character.
template <>
types::string16_t Cast<types::string16_t>(const basic_string_view<char, char_traits<char>>& from);

/// The units are code points.
template <>
types::string16_t Cast<types::string16_t>(const std::wstring& from);

}  // namespace zin::text
