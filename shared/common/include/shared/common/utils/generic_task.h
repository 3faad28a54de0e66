#pragma once

#include <functional>
#include <utility>

#include <component/plk/exceptions.h>

namespace common::utils {

/// A piece of work to be run once, by whoever it is handed to.
class ITask
{
public:
    virtual ~ITask() = default;
    virtual void Execute() const = 0;
};

/// A task made of a function.
class GenericTask final : public ITask
{
public:
    /// @throws zin::CheckFailedException  when the function is empty
    explicit GenericTask(std::function<void()> task) : m_task(std::move(task))
    {
        ZIN_CHECK(m_task != nullptr, "Task is not initialized!");
    }

    void Execute() const override
    {
        m_task();
    }

private:
    std::function<void()> m_task;
};

}  // namespace common::utils
