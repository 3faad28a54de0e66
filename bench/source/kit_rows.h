#pragma once

#include <string>
#include <vector>

#include "contender.h"

namespace tvo::bench {

/// What the kit's controls cost beside Qt's own, in processes that draw into memory.
std::vector<Row> KitRows();

/// The process behind them: plays one side of one row.
void ServeControls(const std::vector<std::string>& arguments);

}  // namespace tvo::bench
