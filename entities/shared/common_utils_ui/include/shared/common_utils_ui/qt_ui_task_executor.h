#pragma once

#include <memory>

#include <shared/common/utils/generic_task.h>
#include <shared/common/utils/task_executor.h>

namespace common::utils {

/// Runs tasks on the UI thread. Any thread may post; there is no state, so one instance serves all.
class QtUiTaskExecutor final : public ITaskExecutor
{
public:
    /// Off the UI thread the task is taken over and queued; on it, and while there is no
    /// application object, it runs before the return and stays with the caller. What a task throws
    /// is not caught here.
    /// @returns 0, or the code of "Invalid argument" for an empty pointer
    int PostTask(std::unique_ptr<ITask>&& task) override;
};

}  // namespace common::utils
