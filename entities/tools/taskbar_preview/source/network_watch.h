#pragma once

#include <functional>

#include <QSocketNotifier>

namespace taskbar_preview {

/// Hears from the kernel (rtnetlink(7)) that links or addresses have changed. For the UI thread.
class NetworkWatch final
{
public:
    /// @param onChange  called in the event loop, once for all that has come since the last time;
    ///                  it must not destroy the watch
    /// @throws std::system_error
    explicit NetworkWatch(std::function<void()> onChange);
    ~NetworkWatch();

    NetworkWatch(const NetworkWatch&) = delete;
    NetworkWatch& operator=(const NetworkWatch&) = delete;

private:
    void Drain() const;

    int m_socket;
    QSocketNotifier m_notifier;
    std::function<void()> m_onChange;
};

}  // namespace taskbar_preview
