#pragma once

#include <memory>

#include <shared/common/utils/task_executor.h>
#include <shared/common_utils_ui/app_shutdown/i_app_shutdown.h>

namespace vdi::common_utils_ui::app_shutdown {

/// Ends the Qt event loop.
class QtAppShutdown final : public IAppShutdown
{
public:
    /// @param executor  runs tasks on the Qt thread
    /// @throws zin::CheckFailedException  for a null executor
    explicit QtAppShutdown(std::shared_ptr<::common::utils::ITaskExecutor> executor);

    /// Posts the end behind whatever has been posted before. The windows are asked to close, and
    /// the loop ends whether they do or not. A failure is logged.
    void StopApplication() const noexcept override;

private:
    std::shared_ptr<::common::utils::ITaskExecutor> m_executor;
};

}  // namespace vdi::common_utils_ui::app_shutdown
