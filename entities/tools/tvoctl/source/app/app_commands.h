#pragma once

#include "../command.h"

namespace tvoctl {

/// Declares `app` with its commands.
void AddAppCommands(CLI::App& app, Commands& commands);

}  // namespace tvoctl
