#include <QCoreApplication>
#include <QThread>

#include <shared/common_utils_ui/ui_thread.h>

namespace vdi::common_utils_ui {

bool IsOnUiThread()
{
    const auto* application = QCoreApplication::instance();
    return application == nullptr || QThread::currentThread() == application->thread();
}

}  // namespace vdi::common_utils_ui
