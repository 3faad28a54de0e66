#pragma once

#include <string>
#include <string_view>

namespace zin {

/// The traits that this library's strings are named with; those of the standard library.
template <class CharT>
struct char_traits : std::char_traits<CharT>
{};

template <class CharT, class Traits>
using basic_string_view = std::basic_string_view<CharT, Traits>;

}  // namespace zin
