#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contender.h"

namespace tvo::bench {

// What passes between an application and its manager, through the application's own client.

/// A sign of life, to the real manager from an application that it has started.
std::unique_ptr<Contender> MakePings();

/// A word to a manager that then says that the command has changed, until the callback runs.
std::unique_ptr<Contender> MakeCommands();

/// The application, and the manager of the commands.
void ServePings(const std::vector<std::string>& arguments);
void ServeCommands(const std::vector<std::string>& arguments);

}  // namespace tvo::bench
