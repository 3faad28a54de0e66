#include "fuzz_target.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

void Require(bool holds, const char* what)
{
    if (!holds)
    {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

}  // namespace fuzz
