#pragma once

#include <cstdint>

namespace app_manager::service {

/// What the supervision has done to its child.
class IChildActions
{
public:
    virtual ~IChildActions() = default;

    /// Whether everything is there that the child is started after.
    virtual bool MayStart() const = 0;

    /// Starts the program.
    /// @returns its pid
    /// @throws zin::Exception  when it cannot be run
    virtual std::uint32_t Start() = 0;

    /// Gives an application the command to close its window and end.
    virtual void Close() = 0;

    virtual void Terminate() = 0;
    virtual void Abort() = 0;
    virtual void Kill() = 0;
};

}  // namespace app_manager::service
