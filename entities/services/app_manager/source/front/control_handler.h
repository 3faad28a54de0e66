#pragma once

#include <string_view>

#include <component/app_manager/tvo_ipc/control_records.h>

#include "front/requests.h"
#include "terminal/terminal.h"

namespace app_manager::service {

/// The control interface: what a person asks and wants.
class ControlHandler final
{
public:
    explicit ControlHandler(Terminal& terminal) : m_terminal(terminal) {}

    [[nodiscard]] Outcome Serve(const ServiceCall& call);

private:
    Outcome List(const ServiceCall& call);
    Outcome Status(const ServiceCall& call);
    Outcome Command(const ServiceCall& call);
    [[nodiscard]] int Obey(std::string_view name, std::uint8_t number);
    [[nodiscard]] int Send(ManagedChild& child, control::Command command);

    Terminal& m_terminal;
};

}  // namespace app_manager::service
