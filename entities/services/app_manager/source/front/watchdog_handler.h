#pragma once

#include "front/requests.h"
#include "terminal/terminal.h"

namespace app_manager::service {

/// The interface ApplicationWatchdog: an application is alive.
class WatchdogHandler final
{
public:
    explicit WatchdogHandler(Terminal& terminal) : m_terminal(terminal) {}

    [[nodiscard]] Outcome Serve(const ServiceCall& call);

private:
    Terminal& m_terminal;
};

}  // namespace app_manager::service
