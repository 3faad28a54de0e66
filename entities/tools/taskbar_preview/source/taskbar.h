#pragma once

#include <memory>
#include <ostream>

#include <QImage>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTranslator>

#include <shared/common_utils_ui/timer/qt_timer_factory.h>
#include <shared/common_utils_ui/ui/taskbar/admin_contact_control/admin_contact_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/datetime_control/date_time_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/language_indicator_view.h>
#include <shared/common_utils_ui/ui/taskbar/network_status_control/network_status_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/notification_control/notification_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/power_control/power_control_view.h>
#include <shared/ui_kit/models/control_items_model.h>
#include <shared/ui_kit/style/palette_provider.h>

#include "options.h"
#include "presenters/clock_presenter.h"
#include "presenters/contact_presenter.h"
#include "presenters/layout_presenter.h"
#include "presenters/network_presenter.h"
#include "presenters/notification_presenter.h"
#include "presenters/power_presenter.h"

namespace taskbar_preview {

/// The six controls with their presenters, and the window that shows them.
class Taskbar final
{
public:
    /// Shows the window. To be called with a QGuiApplication.
    /// @param out  gets a line for each thing that the terminal would do; must outlive the taskbar
    /// @throws std::runtime_error  the window does not come up
    Taskbar(const Options& options, std::ostream& out);
    ~Taskbar();

    Taskbar(const Taskbar&) = delete;
    Taskbar& operator=(const Taskbar&) = delete;

    [[nodiscard]] QQuickWindow& Window();

    /// Waits until nothing changes in the window any more.
    [[nodiscard]] QImage Picture();

private:
    [[nodiscard]] std::shared_ptr<LayoutPresenter> CreateLayoutPresenter(const Options& options);
    [[nodiscard]] std::unique_ptr<NetworkPresenter> CreateNetworkPresenter(std::ostream& out);
    void FillRow();
    void CreateWindow();
    void OnVisibleChanged(bool isVisible);

    QTranslator m_translator;
    std::shared_ptr<vdi::uikit::utils::style::PaletteProvider> m_palette;
    vdi::common_utils_ui::timer::QtTimerFactory m_timers;
    rdp_client::ui::ControlItemsModel m_row;
    std::shared_ptr<NotificationPresenter> m_notificationPresenter;
    QQmlEngine m_engine;
    clock_control::DateTimeControlView m_clock;
    contact_control::AdminContactControlView m_contact;
    language_control::LanguageIndicatorView m_layout;
    network_control::NetworkStatusControlView m_network;
    notification_control::NotificationControlView m_notifications;
    power_control::PowerControlView m_power;
    std::unique_ptr<QQuickWindow> m_window;
};

}  // namespace taskbar_preview
