#pragma once

#include <string_view>

#include "front/requests.h"
#include "terminal/terminal.h"

namespace app_manager::service {

/// The interface ApplicationController: how far an application has come.
class ControllerHandler final
{
public:
    explicit ControllerHandler(Terminal& terminal) : m_terminal(terminal) {}

    [[nodiscard]] Outcome Serve(const ServiceCall& call);

private:
    template <class Request, class Report>
    Outcome Take(const ServiceCall& call, const Report& report);

    Outcome StartApplication(const ServiceCall& call);
    Outcome FinishWithInternalError(const ServiceCall& call);
    [[nodiscard]] int Start(std::string_view name);

    Terminal& m_terminal;
};

}  // namespace app_manager::service
