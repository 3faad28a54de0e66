#pragma once

#include <string>
#include <string_view>
#include <utility>

#include <component/nvl/id_spec.h>
#include <component/nvl/level_writer.h>
#include <component/nvl/path.h>

namespace nvl {

/// The text of a path, with a separator behind every level: "foo/3/". That of the empty path is
/// empty. Bad levels are a state and no exception; only want of memory throws.
/// @tparam N  bytes for which the text has room in any case
/// @returns the text and `IdState::Ok`, or an empty text and what is wrong with the first bad level
template <class P, unsigned long N = 0>
[[nodiscard]] std::pair<std::string, IdState> ToString(const P& path, const IdSpec& spec)
{
    return LevelWriter(spec).Write(path, N);
}

/// The path of a text. Digits make an index, leading zeros are allowed; a separator at the end may
/// be missing. Any bytes may be given; only want of memory throws.
/// @returns the path and `IdState::Ok`, or an empty path and what is wrong with the text
[[nodiscard]] std::pair<Path, IdState> FromString(std::string_view text, const IdSpec& spec);

}  // namespace nvl
