#pragma once

#include <memory>

#include "contender.h"

namespace tvo::bench {

/// Sites whose level is below the threshold.
std::unique_ptr<Contender> MakeSuppressedLines();

/// What a suppressed site cannot do without: a virtual call that says no.
std::unique_ptr<Contender> MakeVirtualCalls();

/// Lines with two arguments, through the whole logger into a sink that forgets them.
std::unique_ptr<Contender> MakeWrittenLines();

/// The same fields through a plain spdlog logger into the same sink.
std::unique_ptr<Contender> MakeSpdlogLines();

}  // namespace tvo::bench
