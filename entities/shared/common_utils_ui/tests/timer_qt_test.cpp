#include <QCoreApplication>
#include <gtest/gtest.h>

#include <shared/common_utils_ui/timer/qt_timer_factory.h>

#include "gui_application.h"

namespace vdi::common_utils_ui::timer {
namespace {

using namespace std::chrono_literals;

TEST(TimerQt, CallsEveryCallbackEverSetAndOutlivesTheApplication)
{
    auto application = std::make_unique<GuiApplication>();
    const auto timer = QtTimerFactory{}.CreateTimer();
    int first = 0;
    int second = 0;
    timer->SetInterval(1ms);
    timer->SetSingleShot(true);
    timer->SetCallback([&] { ++first; });
    timer->ResetCallback();
    timer->SetCallback([&] { ++second; });
    timer->Start();
    EXPECT_NE(timer->GetId(), -1);
    while (second == 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(timer->GetId(), -1);
    application.reset();
}

}  // namespace
}  // namespace vdi::common_utils_ui::timer
