#pragma once

#include "../command.h"

namespace tvoctl {

/// Declares `settings` with its commands.
void AddSettingsCommands(CLI::App& app, Commands& commands);

}  // namespace tvoctl
