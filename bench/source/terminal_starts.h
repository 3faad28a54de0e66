#pragma once

#include <memory>

#include "contender.h"

namespace tvo::bench {

// From the start of processes until they say that they are ready; the screen is there already.

/// The manager, which starts the settings service and the application.
std::unique_ptr<Contender> MakeTerminalStarts();

/// The three programs one after the other, each when the one before is ready.
std::unique_ptr<Contender> MakeProgramStarts();

}  // namespace tvo::bench
