#pragma once

#include <memory>
#include <string_view>

#include <QDate>
#include <QLocale>
#include <QObject>
#include <QString>
#include <QTime>

#include <component/plk/timestamp.h>
#include <shared/common_utils_ui/ui/taskbar/datetime_control/i_date_time_control_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/datetime_control/i_date_time_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/taskbar_view.h>

class QQmlContext;

namespace common_utils_ui::taskbar::ui::controls::datetime_control {

/// The clock, published as `timeControl`. The date's caption is made once a day, the time's with
/// each new timestamp.
class DateTimeControlView final : public TaskbarView<DateTimeControlView,
                                                     IDateTimeControlView,
                                                     std::shared_ptr<IDateTimeControlPresenter>>
{
    Q_OBJECT
    Q_PROPERTY(QString dateCaption READ DateCaption NOTIFY DateCaptionChanged)
    Q_PROPERTY(QString timeCaption READ TimeCaption NOTIFY TimeCaptionChanged)
    Q_PROPERTY(bool isVisible READ IsVisible NOTIFY VisibleChanged)
    Q_PROPERTY(bool isEnabled READ IsEnabled NOTIFY EnabledChanged)

public:
    /// @param context  not owned
    /// @throws zin::CheckFailedException  a collaborator is null
    DateTimeControlView(std::shared_ptr<IDateTimeControlPresenter> presenter,
                        QQmlContext* context,
                        QObject* parent);
    ~DateTimeControlView() override;

    void SetDateTime(plk::types::Timestamp timestamp) override;
    void SetSystemLanguage(std::string_view language) override;
    void OnShow() override;
    void OnHide() override;

    [[nodiscard]] QString DateCaption() const;
    [[nodiscard]] QString TimeCaption() const;

    /// The user clicked the control.
    Q_INVOKABLE void OnControlActivated();

signals:
    void DateCaptionChanged();
    void TimeCaptionChanged();
    void VisibleChanged();
    void EnabledChanged();

private:
    void UpdateDate(plk::types::Timestamp timestamp);
    void UpdateTime(plk::types::Timestamp timestamp);
    [[nodiscard]] QString FormatDate(const QString& format, QDate date) const;
    [[nodiscard]] QString FormatTime(const QString& format, QTime time) const;

    QString m_dateCaption;
    QString m_timeCaption;
    QLocale m_locale;
    plk::types::Timestamp m_lastTimestamp;
    QDate m_lastDate;
    QString m_separator = QStringLiteral(" ");
};

}  // namespace common_utils_ui::taskbar::ui::controls::datetime_control
