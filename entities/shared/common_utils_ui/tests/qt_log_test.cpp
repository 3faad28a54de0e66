#include <utility>

#include <QMessageLogContext>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <shared/common_utils_ui/log/qt_formatters.h>
#include <shared/common_utils_ui/log/qt_logger_support.h>

namespace {

using tvo::logger::LogLevel;

TEST(QtLoggerSupport, MapsTheKindsOfMessagesToLevels)
{
    const std::pair<QtMsgType, LogLevel> rows[] = {
        {QtDebugMsg, LogLevel::Debug},
        {QtInfoMsg, LogLevel::Info},
        {QtWarningMsg, LogLevel::Warning},
        {QtCriticalMsg, LogLevel::Error},
        {QtFatalMsg, LogLevel::Critical},
        {static_cast<QtMsgType>(QtInfoMsg + 1), LogLevel::Trace},
    };
    const tvo::logger::testing::RecordingLogger log;
    for (const auto& [type, level] : rows)
    {
        const auto message = QStringLiteral("{текст} %1").arg(type);
        QtLoggerSupport::MessageHandler(type, {"view.qml", 3, "onShown", "qml"}, message);
        EXPECT_TRUE(log.Contains(level, message.toStdString())) << "type " << type;
        EXPECT_EQ(log.Lines().back().function, "onShown");
    }
    QtLoggerSupport::MessageHandler(QtInfoMsg, {}, "from nowhere");
    EXPECT_EQ(log.Lines().back().function, "");
}

TEST(QtFormatters, PrintTextAndGeometry)
{
    EXPECT_EQ(fmt::format("{:>4}", QStringLiteral("ю")), "   ю");
    EXPECT_EQ(fmt::format("{}", QRect{-5, 0, 1920, 1080}), "[o:[x:-5 y:0] s:[w:1920 h:1080]]");
}

}  // namespace
