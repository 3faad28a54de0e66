#pragma once

#include <chrono>
#include <functional>

#include <QPointer>
#include <QTimer>

#include <shared/common/timer/timer.h>

namespace vdi::common_utils_ui::timer {

/// A QTimer behind the timer interface. The QTimer belongs to its own parent, and this object only
/// asks for its deletion; nothing but destruction may follow the QTimer's death.
class TimerQt final : public ::timer::ITimer
{
public:
    explicit TimerQt(QTimer* timer);
    ~TimerQt() override;

    TimerQt(const TimerQt&) = delete;
    TimerQt& operator=(const TimerQt&) = delete;

    void SetInterval(std::chrono::milliseconds interval) override;
    std::chrono::milliseconds GetInterval() const override;
    void SetSingleShot(bool singleShot) override;
    void Start() override;
    void Stop() override;
    void SetCallback(std::function<void()> callback) override;
    void ResetCallback() override;
    int GetId() const override;

private:
    QPointer<QTimer> m_timer;
};

}  // namespace vdi::common_utils_ui::timer
