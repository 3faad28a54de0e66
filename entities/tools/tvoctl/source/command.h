#pragma once

#include <memory>
#include <vector>

#include <CLI/CLI.hpp>

#include "environment.h"

namespace tvoctl {

/// One command of the program. Declares itself at construction; its arguments stand in its fields
/// once the command line has been read.
class ICommand
{
public:
    virtual ~ICommand() = default;

    /// Whether the command line asks for this command.
    [[nodiscard]] virtual bool IsChosen() const = 0;

    /// @throws Failure
    virtual void Run(Environment& environment) = 0;
};

using Commands = std::vector<std::unique_ptr<ICommand>>;

}  // namespace tvoctl
