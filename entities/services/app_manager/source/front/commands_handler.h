#pragma once

#include "front/requests.h"
#include "terminal/terminal.h"

namespace app_manager::service {

/// The interface ApplicationCommands: what an application is to do next.
class CommandsHandler final
{
public:
    explicit CommandsHandler(Terminal& terminal) : m_terminal(terminal) {}

    [[nodiscard]] Outcome Serve(const ServiceCall& call);

private:
    Outcome GetUpdateHandle(const ServiceCall& call);
    Outcome GetCommand(const ServiceCall& call);

    Terminal& m_terminal;
};

}  // namespace app_manager::service
