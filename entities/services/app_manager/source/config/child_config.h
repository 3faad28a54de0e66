#pragma once

#include <chrono>
#include <set>
#include <string>
#include <vector>

#include <component/app_manager/tvo_ipc/control.h>

namespace app_manager::service {

/// How long the manager waits for a child.
struct Limits
{
    using milliseconds = std::chrono::milliseconds;

    milliseconds start{};     ///< from the start to being ready
    milliseconds ping{};      ///< between two pings of an application that is ready
    milliseconds shutdown{};  ///< from the command to close to the report of readiness for it
    milliseconds exit{};      ///< from there, or from a reported error, to the exit
    milliseconds stop{};      ///< from SIGTERM or SIGABRT to SIGKILL

    milliseconds restartDelay{};  ///< after the first failure; doubles with each one
    milliseconds restartDelayMax{};
    milliseconds healthyAfter{};  ///< ready for so long, a child begins with the first delay again

    bool operator==(const Limits&) const = default;
};

/// What the configuration says about one child.
struct ChildConfig
{
    control::Kind kind = control::Kind::Service;
    std::string name;
    std::string program;                  ///< absolute path
    std::vector<std::string> arguments;   ///< the first one is the program's name
    std::vector<std::string> variables;   ///< "NAME=value", besides the manager's own
    std::string provides;                 ///< server name of a service; empty: ready once it runs
    std::vector<std::string> needs;       ///< services that an application is started after
    std::set<control::Command> commands;  ///< that may be sent to an application
    Limits limits;
};

}  // namespace app_manager::service
