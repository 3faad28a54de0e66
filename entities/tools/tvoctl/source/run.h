#pragma once

#include <iosfwd>

#include "environment.h"

namespace tvoctl {

/// The program from its arguments to its exit status. Results go to the environment's output; a
/// failure is one line on `err`.
int Run(int argc, const char* const* argv, Environment& environment, std::ostream& err);

}  // namespace tvoctl
