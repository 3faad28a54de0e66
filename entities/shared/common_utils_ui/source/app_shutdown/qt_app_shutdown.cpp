#include <utility>

#include <QCoreApplication>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <shared/common_utils_ui/app_shutdown/qt_app_shutdown.h>

namespace vdi::common_utils_ui::app_shutdown {

namespace {

void EndEventLoop()
{
    QCoreApplication::quit();
    // A window that refuses to be closed makes Qt forget about quitting. The window of a dialog
    // does, if the next question has just been asked.
    QCoreApplication::exit();
}

}  // namespace

QtAppShutdown::QtAppShutdown(std::shared_ptr<::common::utils::ITaskExecutor> executor)
    : m_executor(std::move(executor))
{
    ZIN_CHECK(m_executor != nullptr, "Ui Task executor is null");
}

void QtAppShutdown::StopApplication() const noexcept
{
    try
    {
        m_executor->PostTask(std::make_unique<::common::utils::GenericTask>(&EndEventLoop));
    }
    catch (...)
    {
        TVO_LOG_ERROR("Failed to stop application");
    }
}

}  // namespace vdi::common_utils_ui::app_shutdown
