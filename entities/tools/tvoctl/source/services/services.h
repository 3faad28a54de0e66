#pragma once

#include "../command.h"

namespace tvoctl {

/// Declares `services`.
void AddServicesCommand(CLI::App& app, Commands& commands);

}  // namespace tvoctl
