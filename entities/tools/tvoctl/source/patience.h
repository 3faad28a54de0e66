#pragma once

#include <CLI/CLI.hpp>

namespace tvoctl {

/// Declares how long a service may take to appear, in seconds.
inline void AddPatience(CLI::App& group, unsigned& seconds)
{
    constexpr unsigned Most = 3600;
    group.add_option("--wait", seconds, "time for the service to appear")
        ->type_name("SECONDS")
        ->capture_default_str()
        ->check(CLI::Range(0U, Most));
}

}  // namespace tvoctl
