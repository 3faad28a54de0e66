#pragma once

#include <memory>

#include "contender.h"

namespace tvo::bench {

// From a request, or from the start of a process, to the picture of the dialog on the screen. All
// of them show the same pixels, on a screen of their own, in the software renderer.

/// A call to an application that runs.
std::unique_ptr<Contender> MakeRequests();

/// A byte to a process that builds the same dialog with a bare Loader.
std::unique_ptr<Contender> MakeLoads();

/// The application's start, with a request that waits for it.
std::unique_ptr<Contender> MakeApplicationStarts();

#ifdef TVO_BENCH_QML_TOOL
/// The start of Qt's own tool with the same dialog.
std::unique_ptr<Contender> MakeToolStarts();
#endif

}  // namespace tvo::bench
