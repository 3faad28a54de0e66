#include <QCoreApplication>

#include <shared/common_utils_ui/timer/qt_timer_factory.h>

#include "timer/timer_qt.h"

namespace vdi::common_utils_ui::timer {

std::unique_ptr<::timer::ITimer> QtTimerFactory::CreateTimer()
{
    return std::make_unique<TimerQt>(new QTimer{QCoreApplication::instance()});
}

}  // namespace vdi::common_utils_ui::timer
