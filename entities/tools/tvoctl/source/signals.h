#pragma once

#include "output.h"

namespace tvoctl {

/// From here on SIGINT and SIGTERM end the process with 0, behind a whole line of output, whatever
/// its threads are waiting for. To be called before other threads are started.
void EndOnSignals(Output& out);

}  // namespace tvoctl
