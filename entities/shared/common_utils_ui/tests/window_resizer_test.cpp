#include "window/window_resizer.h"

#include <QScreen>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>

#include "gui_application.h"

namespace vdi::common_utils_ui::window {
namespace {

using tvo::logger::LogLevel;

/// A resizer that hears of the real screens and takes the test's rectangle for the primary one.
class ResizerOnTestScreen final : public WindowResizer
{
public:
    QRect m_screen{0, 0, 1920, 1080};

    QRect GetPrimaryScreenGeometry() const override
    {
        return m_screen;
    }
};

class StubWindow final : public windows::components::IWindow
{
    void Show() override {}
    bool IsVisible() const override
    {
        return false;
    }
    void Hide() override {}
    void Close() override {}
    void Resize(int, int) override {}
};

class WindowResizerTest : public ::testing::Test
{
protected:
    IWindowResizer::Callback Note()
    {
        return [this](const auto& window, int width, int height)
        {
            m_resized.push_back({window, {width, height}});
        };
    }

    using Resized = std::vector<std::pair<IWindowResizer::Window, QSize>>;

    tvo::logger::testing::RecordingLogger m_log;
    const IWindowResizer::Window m_first = std::make_shared<StubWindow>();
    const IWindowResizer::Window m_second = std::make_shared<StubWindow>();
    Resized m_resized;
};

TEST_F(WindowResizerTest, GivesTheSizeToAllInOrderAtEveryChangeOfTheScreens)
{
    const GuiApplication application;
    ResizerOnTestScreen resizer;
    resizer.RegisterWindow(m_second, Note());
    resizer.RegisterWindow(m_first, Note());
    auto* screen = QGuiApplication::primaryScreen();
    emit screen->geometryChanged({});
    EXPECT_EQ(m_resized, (Resized{{m_second, {1920, 1080}}, {m_first, {1920, 1080}}}));
    emit qGuiApp->screenAdded(nullptr);
    EXPECT_EQ(m_resized.size(), 4U);
    emit qGuiApp->primaryScreenChanged(screen);
    EXPECT_EQ(m_resized.size(), 6U);
    resizer.m_screen = {};
    emit screen->geometryChanged({});
    EXPECT_EQ(m_resized.size(), 6U);
}

TEST_F(WindowResizerTest, KeepsTheFirstRegistrationUntilItIsUndone)
{
    const GuiApplication application;
    ResizerOnTestScreen resizer;
    resizer.RegisterWindow(m_first, nullptr);
    resizer.RegisterWindow(m_first, Note());
    resizer.RegisterWindow(m_second, Note());
    emit qGuiApp->primaryScreenChanged(nullptr);
    EXPECT_EQ(m_resized, (Resized{{m_second, {1920, 1080}}}));
    resizer.UnregisterWindow(m_second);
    resizer.UnregisterWindow(m_second);
    emit qGuiApp->primaryScreenChanged(nullptr);
    EXPECT_EQ(m_resized.size(), 1U);
}

TEST_F(WindowResizerTest, SaysThatItCannotFollowWithoutAGuiApplication)
{
    EXPECT_NE(CreateWindowResizer(), nullptr);
    EXPECT_TRUE(
        m_log.Contains(LogLevel::Error, "Failed to connect WindowResizer to QGuiApplication"));
}

}  // namespace
}  // namespace vdi::common_utils_ui::window
