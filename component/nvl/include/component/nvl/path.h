#pragma once

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

namespace nvl {

/// One step of a path: an index into a list, or the name of a member of a map. An index 7 and a
/// name "7" are never equal.
using Level = std::variant<unsigned long, std::string>;

/// The way from the root of a tree of values to a node. Any text can stand in it; whether the
/// levels are allowed is found out when it is turned into text.
class Path final : public std::vector<Level>
{
public:
    using std::vector<Level>::vector;

    /// @returns a copy with one more level
    /// @throws std::logic_error for a null pointer
    [[nodiscard]] Path operator/(const char* const& name) const&
    {
        return *this / std::string(name);
    }

    [[nodiscard]] Path operator/(const std::string& name) const&
    {
        return With(name);
    }

    [[nodiscard]] Path operator/(unsigned long index) const&
    {
        return With(index);
    }

private:
    template <class Part>
    [[nodiscard]] Path With(const Part& part) const
    {
        Path path;
        path.reserve(size() + 1);
        path.assign(begin(), end());
        path.emplace_back(part);
        return path;
    }
};

/// The empty path. A constant that is built from it belongs into a function or into an
/// `inline const` of a header that includes this one.
inline const Path Root;

/// Whether `path` is `prefix`, or lies below it.
template <class P>
[[nodiscard]] bool StartsWith(const P& path, const P& prefix)
{
    return path.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), path.begin());
}

}  // namespace nvl
