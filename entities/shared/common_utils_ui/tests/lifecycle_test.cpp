#include <future>
#include <stdexcept>

#include <QCloseEvent>
#include <QTimer>
#include <QWindow>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/process_exception.h>
#include <shared/common_utils_ui/app_commands_handler/app_commands_window_handler.h>
#include <shared/common_utils_ui/app_shutdown/qt_app_shutdown.h>
#include <shared/common_utils_ui/qt_ui_task_executor.h>
#include <shared/common_utils_ui/timer/qt_timer_factory.h>
#include <shared/common_utils_ui/watchdog/application_watchdog.h>

#include "gui_application.h"

namespace vdi::common_utils_ui {
namespace {

using app_commands_handler::AppCommandsWindowHandler;
using ::common::utils::QtUiTaskExecutor;

// clang-format off

/// Everything around a handler, in one: keeps a journal and fails where it is told to.
struct Surroundings final
    : app_manager::IApplicationCommands, app_manager::ICommandChangedSubscriber,
      app_commands_handler::IAppStateChangeHandler, windows::components::IWindow,
      app_shutdown::IAppShutdown
{
    void Note(const std::string& what)
    {
        journal += what + ' ';
        if (what == failing) throw std::runtime_error("broken");
    }
    app_manager::CallbackId RegisterCallback(std::function<void()> callback) override
    {
        changed = callback;
        return 7;
    }
    void UnregisterCallback(app_manager::CallbackId id) override
    {
        changed();  // The last round is still running.
        Note("unregister" + std::to_string(id));
    }
    int GetCommand(std::string_view, long& value) override { value = command; return result; }
    void OnStateChanged(unsigned int state) override { Note("state" + std::to_string(state)); }
    void StopApplication() const noexcept override { journal += "stop "; }
    void Show() override { Note("show"); }
    void Hide() override { Note("hide"); }
    void Close() override { Note("close"); }
    bool IsVisible() const override { return false; }
    void Resize(int, int) override {}

    long command = 0;
    int result = 0;
    std::string failing;
    std::function<void()> changed = [] {};
    mutable std::string journal;
};

TEST(AppCommandsHandler, CarriesOutEachCommandAndSurvivesWhatFails)
{
    struct Row { long command; int result; const char *failing, *journal, *line; };
    const Row rows[] = {
        {-1, 0, "", "show ", "app receive state -1"},
        {-2, 0, "", "hide ", "app receive state -2"},
        {-3, 0, "", "close stop ", "app receive state -3"},
        {-4, 0, "", "", "AppCommandsNavigatorHandler: Unknown command: -4"},
        {0, 0, "", "state0 ", "app receive state 0"},
        {65535, 0, "", "state65535 ", "app receive state 65535"},
        {65536, 0, "", "", "app receive state 65536"},
        {-1, 5, "", "", ""},
        {-3, 0, "close", "close stop ", "AppCommandsNavigatorHandler: Failed to proccess state "
                                        "-3[-2147483573] - std::exception: broken,"},
        {9, 0, "state9", "state9 ", "app: Failed to process state 9: -2147483573 - "
                                    "std::exception: broken"},
        {-1, 0, "unregister7", "show ", "app receive state -1"},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.line);
        const tvo::logger::testing::RecordingLogger log;
        const auto all = std::make_shared<Surroundings>();
        const auto here = std::make_shared<QtUiTaskExecutor>();
        auto handler =
            std::make_unique<AppCommandsWindowHandler>("app", all, all, all, all, here, all);
        handler->StartProcessing();
        all->command = row.command;
        all->result = row.result;
        all->failing = row.failing;
        all->changed();
        EXPECT_EQ(all->journal, row.journal);
        EXPECT_EQ(log.Lines().empty() ? "" : log.Lines().back().message, row.line);
        // A command that meets the destruction is carried out as a whole.
        handler.reset();
        EXPECT_EQ(all->journal, std::string(row.journal) + row.journal + "unregister7 ");
        EXPECT_EQ(
            log.Contains(
                tvo::logger::LogLevel::Error,
                "AppCommandsHandler destruction failed: (-2147483573) std::exception: broken"),
            row.failing == std::string("unregister7"));
    }
}

// clang-format off
TEST(AppCommandsHandler, NamesTheFirstCollaboratorThatIsMissing)
{
    const char* const texts[] = {
        "App name is empty!", "AppCommands is not initialized!", "StateChangeHandler is nullptr",
        "ChangeSubscriber is nullptr", "Window ptr is nullptr", "Ui Task executor is nullptr",
        "AppShutdown is nullptr"};
    const auto all = std::make_shared<Surroundings>();
    const auto executor = std::make_shared<QtUiTaskExecutor>();
    for (int given = 0; given < 7; ++given)
    {
        const auto at = [&](int place) { return place < given ? all : nullptr; };
        try
        {
            AppCommandsWindowHandler(given > 0 ? "app" : "", at(1), at(3), at(2), at(4),
                                     given > 5 ? executor : nullptr, nullptr);
            ADD_FAILURE() << texts[given];
        }
        catch (...)
        {
            EXPECT_THAT(plk::utils::ProcessException().second, testing::HasSubstr(texts[given]));
        }
    }
    EXPECT_EQ(all->journal, "unregister0 unregister0 unregister0 ") << "never started";
}

struct StubbornWindow : QWindow
{
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

struct Counter final : ::common_utils::app_utils::watchdog::IApplicationWatchdog
{
    explicit Counter(int& counted) : count(counted) {}
    void Notify() override { ++count; }
    int& count;
};
// clang-format on

TEST(QtAppShutdown, EndsTheEventLoopAlsoWhenAWindowRefusesToClose)
{
    GuiApplication application;
    StubbornWindow window;
    window.show();
    const app_shutdown::QtAppShutdown shutdown(std::make_shared<QtUiTaskExecutor>());
    std::async(std::launch::async, [&] { shutdown.StopApplication(); }).wait();
    EXPECT_EQ(QGuiApplication::exec(), 0);
    EXPECT_TRUE(window.isVisible());
}

TEST(UiApplicationWatchdog, NotifiesAtEachTickOfARepeatingSecond)
{
    GuiApplication application;
    int count = 0;
    auto watchdog = std::make_unique<watchdog::ApplicationWatchdog>(
        std::make_shared<timer::QtTimerFactory>(), std::make_unique<Counter>(count));
    auto* const timer = QCoreApplication::instance()->findChild<QTimer*>();
    EXPECT_EQ(timer->interval(), 1000);
    EXPECT_TRUE(timer->isActive() && !timer->isSingleShot());
    QMetaObject::invokeMethod(timer, "timeout");
    QMetaObject::invokeMethod(timer, "timeout");
    EXPECT_EQ(count, 2);
    watchdog.reset();
    EXPECT_FALSE(timer->isActive());
}

}  // namespace
}  // namespace vdi::common_utils_ui
