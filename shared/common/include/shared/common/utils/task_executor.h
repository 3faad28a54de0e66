#pragma once

#include <memory>

#include <shared/common/utils/generic_task.h>

namespace common::utils {

/// Runs tasks on the thread that it stands for.
class ITaskExecutor
{
public:
    virtual ~ITaskExecutor() = default;

    /// Runs the task at once when called on the executor's own thread, otherwise queues it there.
    /// A queued task is taken out of `task`; one that ran at once stays there.
    /// @returns 0, or the code "Invalid argument" for an empty pointer
    /// @note thread: any
    virtual int PostTask(std::unique_ptr<ITask>&& task) = 0;
};

}  // namespace common::utils
