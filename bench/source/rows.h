#pragma once

#include <vector>

#include "contender.h"

namespace tvo::bench {

/// Every row, in the order of the table in the README.
std::vector<Row> AllRows();

}  // namespace tvo::bench
