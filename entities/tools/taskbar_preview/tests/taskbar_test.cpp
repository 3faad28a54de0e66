#include "taskbar.h"

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

/// Steps through its layouts at once, as a compositor does a little later.
struct FakeController final : language_control::IKeyboardLayoutController
{
    void RequestLayoutChange() override
    {
        ++steps;
        callback(layouts[static_cast<std::size_t>(steps) % layouts.size()]);
    }
    void QueryCurrentLayout() override {}
    void RegisterLayoutChangedCallback(std::function<void(std::string_view)> wanted) override
    {
        callback = std::move(wanted);
    }

    std::vector<std::string> layouts{"us", "de", "ru"};
    std::function<void(std::string_view)> callback;
    int steps = 0;
};

TEST(LayoutPresenter, StepsUntilTheLayoutIsThereOrHasNoWayToIt)
{
    auto owned = std::make_unique<FakeController>();
    auto& controller = *owned;
    bool isShown = false;
    LayoutPresenter presenter(std::move(owned), {}, [&](bool shown) { isShown = shown; });
    controller.callback("us");
    EXPECT_TRUE(isShown);
    presenter.ChangeLocale("ru-RU");
    EXPECT_EQ(controller.steps, 2);
    presenter.ChangeLocale("pt-BR");
    EXPECT_EQ(controller.steps, 5);
    controller.callback("de");
    EXPECT_FALSE(isShown);
    EXPECT_EQ(controller.steps, 5);
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
