#include <QCoreApplication>
#include <QMetaObject>

#include <component/plk/result_codes.h>
#include <shared/common_utils_ui/qt_ui_task_executor.h>
#include <shared/common_utils_ui/ui_thread.h>

namespace common::utils {

int QtUiTaskExecutor::PostTask(std::unique_ptr<ITask>&& task)
{
    if (task == nullptr)
        return plk::codes::InvalidArgument;

    if (vdi::common_utils_ui::IsOnUiThread())
    {
        task->Execute();
        return plk::codes::Ok;
    }

    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [queued = std::move(task)] { queued->Execute(); },
        Qt::QueuedConnection);
    return plk::codes::Ok;
}

}  // namespace common::utils
