#pragma once

#include <memory>

namespace common::utils {

/// Tells whether an object that lives on another thread is still there. To be asked on the thread
/// on which that object is destroyed; the answer holds as long as that thread does nothing else.
class ICallableGuard
{
public:
    virtual ~ICallableGuard() = default;

    /// @returns true when the guarded object has gone
    virtual bool IsNull() const = 0;
};

/// An object that may be called from other threads through an invoker.
class ICallable
{
public:
    virtual ~ICallable() = default;

    /// Makes a guard over this object. To be called while the object is certainly alive.
    virtual std::unique_ptr<ICallableGuard> GetGuardView() const = 0;
};

}  // namespace common::utils
