#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <limits>
#include <thread>
#include <vector>

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTranslator>
#include <gmock/gmock.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/process_exception.h>
#include <shared/common_utils_ui/qt_invoker.h>
#include <shared/common_utils_ui/ui/taskbar/admin_contact_control/admin_contact_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/datetime_control/date_time_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/language_indicator_view.h>
#include <shared/common_utils_ui/ui/taskbar/network_status_control/network_status_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/notification_control/notification_control_view.h>
#include <shared/common_utils_ui/ui/taskbar/power_control/power_control_view.h>

#include "gui_application.h"

namespace common_utils_ui::taskbar::ui::controls {
namespace {

using namespace admin_contact_control;
using namespace datetime_control;
using namespace language_control;
using namespace network_status_control;
using namespace notification_control;
using namespace power_control;

/// A presenter of any control that keeps what its view calls, a blank behind each call. Which of
/// the operations it really has depends on the interface.
template <class View>
class RecordingPresenter final : public View::Presenter
{
public:
    explicit RecordingPresenter(std::string& calls) : m_calls(calls) {}
    void SetView(typename View::ViewInterface* view)
    {
        m_calls += view != nullptr ? "SetView " : "Gone ";
    }
    void OnShow()
    {
        m_calls += "OnShow ";
    }
    void OnHide()
    {
        m_calls += "OnHide ";
    }
    void OnControlActivated()
    {
        m_calls += "OnControlActivated ";
    }
    void Shutdown()
    {
        m_calls += "OnShutdownClicked ";
    }
    void Reboot()
    {
        m_calls += "OnRebootClicked ";
    }
    void ChangeLocale(std::string locale)
    {
        m_calls += locale + ' ';
    }

private:
    std::string& m_calls;
};

/// @param calls  null for a view without a presenter
template <class View>
std::unique_ptr<View> Make(std::string* calls, QQmlContext* context)
{
    auto presenter =
        calls != nullptr ? std::make_unique<RecordingPresenter<View>>(*calls) : nullptr;
    return std::make_unique<View>(std::move(presenter), context, nullptr);
}

struct Control
{
    std::function<std::unique_ptr<QObject>(std::string*, QQmlContext*)> make;
    bool visible;
    const char* told;  ///< the type of what VisibleChanged and EnabledChanged tell
    std::string property;
    const char* name;
    std::string presenter;
    std::string calls;  ///< what the presenter hears when everything is done once
};

// clang-format off
const Control Controls[] = {
    {Make<DateTimeControlView>, true, "", "timeControl", "TimeControl",
     "TimeControlPresenter", "OnShow OnHide OnControlActivated "},
    {Make<AdminContactControlView>, true, "", "adminContactControl", "AdminContactControl",
     "AdminContactControlPresenter", "OnShow OnHide "},
    {Make<LanguageIndicatorView>, false, "bool", "layoutControl", "LayoutControl",
     "LanguageIndicatorPresenter", "OnShow "},
    {Make<NetworkStatusControlView>, true, "", "networkStatusIndicator", "",
     "NetworkStatusControlPresenter", "OnShow OnHide OnControlActivated "},
    {Make<NotificationControlView>, true, "", "notificationContext", "",
     "NotificationControlPresenter", "OnShow OnHide OnControlActivated "},
    {Make<PowerControlView>, true, "bool", "powerControl", "PowerControl",
     "PowerControlPresenter", "OnShutdownClicked OnRebootClicked "},
};
// clang-format on

class TaskbarViews : public ::testing::Test
{
protected:
    QVariant Evaluate(const std::string& expression)
    {
        return QQmlExpression(m_context, nullptr, expression.c_str()).evaluate();
    }

    GuiApplication m_application;
    QQmlEngine m_engine;
    QQmlContext* m_context = m_engine.rootContext();
    std::string m_calls;
};

TEST_F(TaskbarViews, ArePublishedAndCallTheirPresenterOnce)
{
    for (const Control& control : Controls)
    {
        m_calls.clear();
        auto view = control.make(&m_calls, m_context);
        EXPECT_EQ(view->objectName(), control.name);
        auto& item = dynamic_cast<ITaskbarViewItem&>(*view);
        item.OnShow();
        item.OnHide();
        item.Activate();
        item.Deactivate();
        for (const char* click :
             {"OnControlActivated()", "OnShutdownClicked()", "OnRebootClicked()"})
        {
            Evaluate(control.property + '.' + click);
        }
        view.reset();
        EXPECT_EQ(m_calls, "SetView " + control.calls + "Gone ") << control.property;
    }
}

TEST_F(TaskbarViews, RefuseToBeWithoutCollaborators)
{
    for (const Control& control : Controls)
    {
        for (const bool withPresenter : {false, true})
        {
            const auto missing = withPresenter ? "Qml context" : control.presenter;
            try
            {
                control.make(withPresenter ? &m_calls : nullptr, nullptr);
                ADD_FAILURE() << missing;
            }
            catch (...)
            {
                const auto text = missing + " is not initialized!.*/ui/taskbar/.*_view.cpp";
                EXPECT_THAT(plk::utils::ProcessException().second, testing::ContainsRegex(text));
            }
        }
    }
}

TEST_F(TaskbarViews, TellOfChangesOfTheirFlagsOnly)
{
    for (const Control& control : Controls)
    {
        const auto view = control.make(&m_calls, m_context);
        auto& item = dynamic_cast<ITaskbarViewItem&>(*view);
        // What the macro SIGNAL makes of a signature.
        const auto signature = std::string("Changed(") + control.told + ")";
        QSignalSpy visible(view.get(), ("2Visible" + signature).c_str());
        QSignalSpy enabled(view.get(), ("2Enabled" + signature).c_str());
        for (const bool change : {false, true, true, false})
        {
            item.SetVisible(control.visible != change);
            item.SetEnabled(!change);
            EXPECT_EQ(Evaluate(control.property + ".isVisible"), control.visible != change);
        }
        EXPECT_EQ(visible.count(), 2) << control.property;
        EXPECT_EQ(enabled.count(), 2) << control.property;
    }
}

TEST_F(TaskbarViews, TellOfChangesOfTheirContentOnly)
{
    const auto contact = Make<AdminContactControlView>(&m_calls, m_context);
    const auto network = Make<NetworkStatusControlView>(&m_calls, m_context);
    const auto counter = Make<NotificationControlView>(&m_calls, m_context);
    const auto power = Make<PowerControlView>(&m_calls, m_context);
    QSignalSpy caption(contact.get(), &AdminContactControlView::AdminContactCaptionChanged);
    QSignalSpy status(network.get(), &NetworkStatusControlView::NetworkStatusChanged);
    QSignalSpy count(counter.get(), &NotificationControlView::CountChanged);
    QSignalSpy update(power.get(), &PowerControlView::AvailableUpdateChanged);
    QSignalSpy position(power.get(), &PowerControlView::TaskbarPositionChanged);
    QSignalSpy hotKey(power.get(), &PowerControlView::hotKeyPressed);
    for (const int step : {0, 3, 3})
    {
        // The contact tells of any text, but only while it is visible.
        contact->SetVisible(step == 0);
        contact->SetAdminContactInfo(std::to_string(step));
        network->SetNetworkIndicatorStatus(network_status::NetworkStatus(step));
        counter->SetCount(step);
        power->SetUpdateAvailable(step != 0);
        power->SetTaskbarOnBottomPosition(step != 0);
        EXPECT_EQ(Evaluate("adminContactControl.adminContactCaption"), QString::number(step));
        EXPECT_EQ(Evaluate("networkStatusIndicator.networkStatus"), step);
        EXPECT_EQ(Evaluate("notificationContext.count"), step);
        EXPECT_EQ(Evaluate("powerControl.isAvailableUpdate"), step != 0);
        EXPECT_EQ(Evaluate("powerControl.isTaskbarOnBottomPosition"), step != 0);
    }
    power->Deactivate();
    Evaluate("powerControl.SetMenuShown(true)");
    power->Deactivate();
    for (const QSignalSpy* spy : {&caption, &status, &count, &update, &position, &hotKey})
    {
        EXPECT_EQ(spy->count(), 1) << spy->signal().toStdString();
    }
}

/// A timestamp that counts the calls that it is handed to.
struct CountedTimestamp
{
    std::shared_ptr<int> calls;

    operator plk::types::Timestamp() const
    {
        return {++*calls};
    }
};

TEST_F(TaskbarViews, DropCallsOfTenThreadsWhenGone)
{
    const auto calls = std::make_shared<int>(0);
    auto view = Make<DateTimeControlView>(&m_calls, m_context);
    const vdi::common_utils_ui::QtInvoker<IDateTimeControlView> invoker{view.get()};
    const auto call = [&]
    {
        for (int i = 0; i < 50; ++i)
        {
            invoker.Invoke(&IDateTimeControlView::SetDateTime, CountedTimestamp{calls});
        }
    };
    const auto callFromTenThreads = [&]
    {
        std::vector<std::jthread> threads;
        std::generate_n(std::back_inserter(threads), 10, [&] { return std::jthread(call); });
    };
    callFromTenThreads();
    QCoreApplication::processEvents();
    EXPECT_EQ(*calls, 500);
    callFromTenThreads();
    view.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(*calls, 500);
    EXPECT_EQ(calls.use_count(), 1);
}

TEST_F(TaskbarViews, LayoutIsAskedForByItsShortName)
{
    struct : QTranslator
    {
        QString translate(const char*, const char*, const char*, int) const override
        {
            return QStringLiteral("new");
        }
    } laterTranslation;
    const tvo::logger::testing::RecordingLogger log;
    const auto view = Make<LanguageIndicatorView>(&m_calls, m_context);
    const auto* model = m_context->contextProperty("localeModel").value<QStringListModel*>();
    QSignalSpy spy(view.get(), &LanguageIndicatorView::KeyboardLayoutChanged);
    for (const char* locale : {"pt-BR", "pt-BR", "de-DE", "ru-RU", "en-US"})
    {
        view->OnLocaleChanged(locale);
    }
    EXPECT_EQ(spy, (QList<QVariantList>{{"$pt-BR$"}, {"$ru-RU$"}, {"$en-US$"}}));
    EXPECT_EQ(model->stringList(), (QStringList{"$en-US$", "$ru-RU$", "$es-MX$", "$pt-BR$"}));
    view->ChangeLayout("$ru-RU$");
    QCoreApplication::installTranslator(&laterTranslation);
    view->OnLocalesChanged({"ru-RU", "en-US", "de-DE"});
    EXPECT_EQ(model->stringList(), (QStringList{"$ru-RU$", "$en-US$", "new"}));
    for (const char* layout : {"$en-US$", "$ru-RU$", "new"})
    {
        view->ChangeLayout(layout);
    }
    EXPECT_EQ(m_calls, "SetView ru-RU ");
    EXPECT_EQ(Evaluate("layoutControl.keyboardLayout"), "$en-US$");
    std::vector<std::string> lines;
    for (const auto& line : log.Lines())
    {
        EXPECT_EQ(line.level, tvo::logger::LogLevel::Error);
        lines.push_back(line.message);
    }
    EXPECT_THAT(
        lines,
        testing::ElementsAre("GetLayoutAbbrev : No lang id for locale de-DE; default 'ru-RU'",
                             "Keyboard layout display name $ru-RU$ is missing in list",
                             "GetLayoutAbbrev : No lang id for locale de-DE; default 'ru-RU'",
                             "Cannot match locale for keyboard layout display name new"));
}

/// A moment that a clock is told, and what it has to show and to signal.
struct Moment
{
    const char* zone;
    const char* language;
    std::int64_t microseconds;
    const char* date;
    const char* time;
    int dateSignals;
    int timeSignals;
};

constexpr std::int64_t Second = 1'000'000;
constexpr std::int64_t Day = 86'400 * Second;
constexpr std::int64_t Night = 1'710'028'798 * Second;    // 2024-03-09 23:59:58 UTC
constexpr std::int64_t Tuesday = 1'709'640'000 * Second;  // 2024-03-05 12:00:00 UTC
constexpr std::int64_t Spring = 1'711'846'799 * Second;   // 2024-03-31 00:59:59 UTC
constexpr std::int64_t Autumn = 1'729'990'799 * Second;   // 2024-10-27 00:59:59 UTC
constexpr std::int64_t Last = std::numeric_limits<std::int64_t>::max();
constexpr const char* Berlin = "CET-1CEST,M3.5.0,M10.5.0/3";

const Moment Moments[] = {
    {"UTC0", "en_US", 0, "", "", 0, 0},
    {"UTC0", "en_US", Night, "Sat 09 March", "23:59", 1, 1},
    {"UTC0", "en_US", Night, "Sat 09 March", "23:59", 0, 0},
    {"UTC0", "en_US", Night + Second, "Sat 09 March", "23:59", 0, 1},
    {"UTC0", "en_US", Night + 2 * Second, "Sun 10 March", "00:00", 1, 1},
    {"MSK-3", "en_US", Night + 3 * Second, "Sun 10 March", "03:00", 0, 1},
    {"PST8", "en_US", Night + 4 * Second, "Sat 09 March", "16:00", 1, 1},
    {Berlin, "en_US", Spring, "Sun 31 March", "01:59", 1, 1},
    {Berlin, "en_US", Spring + Second, "Sun 31 March", "03:00", 0, 1},
    {Berlin, "en_US", Autumn, "Sun 27 October", "02:59", 1, 1},
    {Berlin, "en_US", Autumn + Second, "Sun 27 October", "02:00", 0, 1},
    {"UTC0", "en_US", Tuesday, "Tue 05 March", "12:00", 1, 1},
    {"UTC0", "ru_RU", Tuesday, "Tue 05 March", "12:00", 0, 0},
    {"UTC0", "ru_RU", Tuesday + Second, "Tue 05 March", "12:00", 0, 1},
    {"UTC0", "ru_RU", Tuesday + Day, "Ср 06 марта", "12:00", 1, 1},
    {"UTC0", "pt_BR", Tuesday + 2 * Day, "Qui. 07 março", "12:00", 1, 1},
    {"UTC0", "es_MX", Tuesday + 3 * Day, "Vie 08 marzo", "12:00", 1, 1},
    {"UTC0", "en_US", -1, "Thu 01 January", "00:00", 1, 1},
    {"UTC0", "en_US", -Second, "Wed 31 December", "23:59", 1, 1},
    {"UTC0", "en_US", Last, "Sun 10 January", "04:00", 1, 1},
    {"UTC0", "en_US", -Last, "Mon 21 December", "19:59", 1, 1},
};

TEST_F(TaskbarViews, ClockMakesTheDateOnceADayAndTheTimeWithEachTimestamp)
{
    const auto view = Make<DateTimeControlView>(&m_calls, m_context);
    QSignalSpy dates(view.get(), &DateTimeControlView::DateCaptionChanged);
    QSignalSpy times(view.get(), &DateTimeControlView::TimeCaptionChanged);
    for (const Moment& moment : Moments)
    {
        SCOPED_TRACE(::testing::Message() << moment.zone << ' ' << moment.microseconds);
        dates.clear();
        times.clear();
        setenv("TZ", moment.zone, 1);
        view->SetSystemLanguage(moment.language);
        view->SetDateTime({moment.microseconds});
        EXPECT_EQ(Evaluate("timeControl.dateCaption").toString(), moment.date);
        EXPECT_EQ(Evaluate("timeControl.timeCaption").toString(), moment.time);
        EXPECT_EQ(dates.count(), moment.dateSignals);
        EXPECT_EQ(times.count(), moment.timeSignals);
    }
    unsetenv("TZ");
}

}  // namespace
}  // namespace common_utils_ui::taskbar::ui::controls
