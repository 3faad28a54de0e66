#include <cstdint>
#include <ctime>
#include <utility>

#include <QStringList>

#include <shared/common_utils_ui/ui/taskbar/datetime_control/date_time_control_view.h>

namespace common_utils_ui::taskbar::ui::controls::datetime_control {

namespace {

// With the C library, so that a change of the terminal's time zone takes effect at once.
std::tm ToLocalTime(plk::types::Timestamp timestamp)
{
    constexpr std::int64_t MicrosecondsASecond = 1'000'000;
    const std::time_t seconds = timestamp.value / MicrosecondsASecond;
    std::tm local{};
    tzset();
    localtime_r(&seconds, &local);
    return local;
}

}  // namespace

DateTimeControlView::DateTimeControlView(std::shared_ptr<IDateTimeControlPresenter> presenter,
                                         QQmlContext* context,
                                         QObject* parent)
    : TaskbarView(std::move(presenter), parent)
{
    CheckCollaborators(context, "TimeControlPresenter is not initialized!", __FILE__, __LINE__);
    Publish(*context, "timeControl");
    setObjectName(QStringLiteral("TimeControl"));
    m_presenter->SetView(this);
}

DateTimeControlView::~DateTimeControlView()
{
    m_presenter->SetView(nullptr);
}

void DateTimeControlView::SetDateTime(plk::types::Timestamp timestamp)
{
    if (Change(m_lastTimestamp, timestamp))
    {
        UpdateDate(timestamp);
        UpdateTime(timestamp);
    }
}

void DateTimeControlView::SetSystemLanguage(std::string_view language)
{
    const QLocale locale(
        QString::fromUtf8(language.data(), static_cast<qsizetype>(language.size())));
    if (locale != m_locale)
    {
        m_locale = locale;
    }
}

void DateTimeControlView::OnShow()
{
    m_presenter->OnShow();
}

void DateTimeControlView::OnHide()
{
    m_presenter->OnHide();
}

QString DateTimeControlView::DateCaption() const
{
    return m_dateCaption;
}

QString DateTimeControlView::TimeCaption() const
{
    return m_timeCaption;
}

void DateTimeControlView::OnControlActivated()
{
    m_presenter->OnControlActivated();
}

void DateTimeControlView::UpdateDate(plk::types::Timestamp timestamp)
{
    const std::tm local = ToLocalTime(timestamp);
    if (Change(m_lastDate, QDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday)))
    {
        m_dateCaption = FormatDate(tr("ddd dd MMMM"), m_lastDate);
        emit DateCaptionChanged();
    }
}

void DateTimeControlView::UpdateTime(plk::types::Timestamp timestamp)
{
    const std::tm local = ToLocalTime(timestamp);
    m_timeCaption = FormatTime(tr("hh:mm"), QTime(local.tm_hour, local.tm_min, local.tm_sec, 0));
    emit TimeCaptionChanged();
}

QString DateTimeControlView::FormatDate(const QString& format, QDate date) const
{
    QStringList parts = format.split(QLatin1Char(' '));
    for (QString& part : parts)
    {
        // Some languages give the day's short name in lower case, and it opens the caption.
        const bool isDayName = part == QLatin1String("ddd");
        part = m_locale.toString(date, part);
        if (isDayName && !part.isEmpty())
        {
            part[0] = part[0].toUpper();
        }
    }
    return parts.join(m_separator);
}

QString DateTimeControlView::FormatTime(const QString& format, QTime time) const
{
    return m_locale.toString(time, format);
}

}  // namespace common_utils_ui::taskbar::ui::controls::datetime_control
