#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace timer {

/// A timer of the thread that made it; its callbacks run there. Created stopped.
class ITimer
{
public:
    virtual ~ITimer() = default;

    virtual void SetInterval(std::chrono::milliseconds interval) = 0;
    virtual std::chrono::milliseconds GetInterval() const = 0;
    virtual void SetSingleShot(bool singleShot) = 0;
    virtual void Start() = 0;
    virtual void Stop() = 0;

    /// Adds a callback; those set before go on being called.
    virtual void SetCallback(std::function<void()> callback) = 0;

    /// Without effect: callbacks last as long as the timer.
    virtual void ResetCallback() = 0;

    virtual int GetId() const = 0;
};

class ITimerFactory
{
public:
    virtual ~ITimerFactory() = default;
    virtual std::unique_ptr<ITimer> CreateTimer() = 0;
};

}  // namespace timer
