#include "kinds.h"

#include <algorithm>
#include <array>
#include <iterator>

#include <fmt/format.h>

#include "../failure.h"

namespace tvoctl {
namespace {

/// In the order of `nvl::kind`.
constexpr std::array<std::string_view, nvl::kind::Count> Names = {"none",
                                                                  "list",
                                                                  "map",
                                                                  "bool",
                                                                  "int8",
                                                                  "int16",
                                                                  "int32",
                                                                  "int64",
                                                                  "double",
                                                                  "timestamp",
                                                                  "string",
                                                                  "blob",
                                                                  "uint8",
                                                                  "uint16",
                                                                  "uint32",
                                                                  "uint64"};

}  // namespace

std::string_view KindName(std::size_t kind)
{
    return Names.at(kind);
}

std::string KindNames()
{
    return fmt::format("{}", fmt::join(Names, ", "));
}

std::size_t KindFromName(std::string_view name)
{
    const auto* const found = std::find(Names.begin(), Names.end(), name);
    if (found == Names.end())
    {
        throw Failure(ExitStatus::BadUse,
                      fmt::format("'{}' is no type; there are {}", name, KindNames()));
    }
    return static_cast<std::size_t>(std::distance(Names.begin(), found));
}

}  // namespace tvoctl
