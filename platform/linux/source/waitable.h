#pragma once

namespace platform {

/// What a wait set can hold.
class Waitable
{
public:
    virtual ~Waitable() = default;

    /// A descriptor that is readable while there is something to do. Stays open.
    virtual int WaitDescriptor() const = 0;

    /// @returns milliseconds until there is something to do that the descriptor does not show, 0
    ///          when there is already, or -1
    virtual int DueIn()
    {
        return -1;
    }

    /// It was added to a set.
    virtual void Joined() {}

    /// A wait has reported it.
    virtual void Reported() {}
};

}  // namespace platform
