#include "taskbar.h"

#include <chrono>
#include <map>
#include <sstream>

#include <QDate>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickItem>
#include <QStringList>
#include <QTest>
#include <gtest/gtest.h>

namespace taskbar_preview {
namespace {

/// Nothing may be written there while this lives.
struct ConsoleWatch
{
    ConsoleWatch()
    {
        s_lines.clear();
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text)
                               { s_lines.push_back(text); });
    }
    ~ConsoleWatch()
    {
        qInstallMessageHandler(nullptr);
        EXPECT_EQ(s_lines.join('\n').toStdString(), "");
    }

    static inline QStringList s_lines;
};

/// The names of the buttons that can be seen.
QStringList ButtonsIn(const QQuickItem& item)
{
    QStringList names;
    for (const auto* child : item.childItems())
    {
        if (child->inherits("QQuickButton") && child->isVisible())
            names.push_back(child->property("text").toString());
        names += ButtonsIn(*child);
    }
    return names;
}

struct TaskbarPreview : testing::Test
{
    QQuickItem* Find(const QString& name)
    {
        return taskbar.Window().findChild<QQuickItem*>(name);
    }

    void Click(const QString& name)
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return Find(name) && Find(name)->isVisible(); }));
        const auto& item = *Find(name);
        const auto center = item.mapToScene({item.width() / 2, item.height() / 2});
        QTest::mouseClick(&taskbar.Window(), Qt::LeftButton, Qt::NoModifier, center.toPoint());
    }

    const char* arguments[5] = {"taskbar_preview", "--language", "en-US", "--contact", "<b>Me"};
    std::ostringstream out;
    ConsoleWatch console;
    Taskbar taskbar{ParseOptions(5, arguments), out};
};

TEST_F(TaskbarPreview, ShowsTheControlsThatHaveSomethingToShow)
{
    static_cast<void>(taskbar.Picture());
    const auto names = ButtonsIn(*taskbar.Window().contentItem());
    ASSERT_EQ(names.size(), 5) << names.join('\n').toStdString();
    EXPECT_EQ(names[0], "<b>Me");
    EXPECT_TRUE(names[2].contains(QLocale("en-US").toString(QDate::currentDate(), "dd MMMM")));
    EXPECT_EQ(names[4], "Power");
}

TEST_F(TaskbarPreview, PrintsWhatThePowerMenuWouldDo)
{
    Click("Power");
    Click("Shutdown");
    EXPECT_EQ(out.str(), "would shut the terminal down\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Find("Shutdown")->isVisible(); }));
    QTest::keyClick(&taskbar.Window(), Qt::Key_F10);
    Click("Reboot");
    EXPECT_EQ(out.str(), "would shut the terminal down\nwould restart the terminal\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Find("Reboot")->isVisible(); }));
    QTest::keyClick(&taskbar.Window(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(taskbar.Window().isVisible());
}

TEST(NetworkLinks, OneThatWorksIsEnough)
{
    const std::vector<std::pair<std::map<std::string, Link>, NetworkStatus>> rows{
        {{}, NetworkStatus::CableDisconnected},
        {{{"a", {false, true}}}, NetworkStatus::CableDisconnected},
        {{{"a", {true, false}}, {"b", {false, true}}}, NetworkStatus::MediaLinkedNoIpAddress},
        {{{"a", {true, true}}, {"b", {true, false}}}, NetworkStatus::Connected},
    };
    for (const auto& [links, status] : rows)
        EXPECT_EQ(StatusOf(links), status);
}

/// A compositor with a list of layouts, which answers when it is told to.
struct FakeController final : language_control::IKeyboardLayoutController
{
    void RequestLayoutChange() override
    {
        ++pending;
    }
    void QueryCurrentLayout() override {}
    void RegisterLayoutChangedCallback(std::function<void(std::string_view)> wanted) override
    {
        callback = std::move(wanted);
    }

    /// Steps and answers until nothing is asked any more. @returns how many steps it took
    std::size_t Answer()
    {
        const std::size_t start = current;
        while (pending > 0)
        {
            EXPECT_EQ(pending--, 1);
            callback(layouts[++current % layouts.size()]);
        }
        return current - start;
    }

    std::vector<std::string> layouts{"us", "us", "ru", "de"};
    std::function<void(std::string_view)> callback;
    std::size_t current = 0;
    int pending = 0;
};

/// A presenter of a fake compositor, which has told it the first layout.
struct LayoutChoice
{
    explicit LayoutChoice(std::chrono::milliseconds patience = std::chrono::minutes(1))
        : presenter(
              std::unique_ptr<FakeController>(&controller),
              {},
              [this](bool shown) { isShown = shown; },
              patience)
    {
        controller.callback("us");
    }

    FakeController& controller = *new FakeController;
    bool isShown = false;
    LayoutPresenter presenter;
};

TEST(LayoutPresenter, StepsUntilTheLayoutIsThereOrHasNoWayToIt)
{
    LayoutChoice choice;
    EXPECT_TRUE(choice.isShown);
    choice.presenter.ChangeLocale("ru-RU");
    EXPECT_EQ(choice.controller.Answer(), 2u);
    choice.presenter.ChangeLocale("pt-BR");
    EXPECT_EQ(choice.controller.Answer(), 12u);
    choice.controller.callback("de");
    EXPECT_FALSE(choice.isShown);
    EXPECT_EQ(choice.controller.pending, 0);
}

TEST(LayoutPresenter, TakesAnotherPickWhileItSteps)
{
    LayoutChoice choice;
    choice.presenter.ChangeLocale("pt-BR");
    choice.presenter.ChangeLocale("ru-RU");
    EXPECT_EQ(choice.controller.Answer(), 2u);
}

TEST(LayoutPresenter, ForgetsAPickWhoseRequestIsLost)
{
    LayoutChoice choice(std::chrono::milliseconds::zero());
    choice.presenter.ChangeLocale("ru-RU");
    choice.controller.callback("us");
    EXPECT_EQ(choice.controller.pending, 1);
    choice.presenter.ChangeLocale("ru-RU");
    EXPECT_EQ(choice.controller.pending, 2);
}

}  // namespace
}  // namespace taskbar_preview

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
