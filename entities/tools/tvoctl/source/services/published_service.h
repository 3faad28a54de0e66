#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tvoctl {

/// A service or a static name of the terminal, and the process behind it.
struct PublishedService
{
    std::string name;
    std::string interfaceName;  ///< empty for a static name
    std::string entity;         ///< empty where none is known
    bool isStatic = false;
    std::uint32_t pid = 0;  ///< 0 where none is known
    std::uint32_t uid = 0;
    std::optional<std::uint32_t> waiting;  ///< connections of the process that nobody has taken yet
    std::optional<std::uint32_t> served;   ///< and those that it holds
};

/// @throws Failure  NoService
using ListServices = std::function<std::vector<PublishedService>()>;

}  // namespace tvoctl
