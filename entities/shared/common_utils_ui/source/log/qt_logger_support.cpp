#include <string>

#include <QString>

#include <component/logger/logger.h>
#include <shared/common_utils_ui/log/qt_formatters.h>
#include <shared/common_utils_ui/log/qt_logger_support.h>

using tvo::logger::LogLevel;
using tvo::logger::TVOLogger;

namespace {

LogLevel LevelOf(QtMsgType type)
{
    switch (type)
    {
        case QtDebugMsg:
            return LogLevel::Debug;
        case QtInfoMsg:
            return LogLevel::Info;
        case QtWarningMsg:
            return LogLevel::Warning;
        case QtCriticalMsg:
            return LogLevel::Error;
        case QtFatalMsg:
            return LogLevel::Critical;
    }
    return LogLevel::Trace;
}

const char* OrEmpty(const char* text)
{
    return text == nullptr ? "" : text;
}

}  // namespace

void QtLoggerSupport::MessageHandler(QtMsgType type,
                                     const QMessageLogContext& context,
                                     const QString& message)
{
    const auto level = LevelOf(type);
    if (!tvo::logger::IsEnabled(level))
        return;
    auto text = fmt::format("{}", message);
    TVOLogger::RootLogger().LogImpl(
        level, OrEmpty(context.file), context.line, OrEmpty(context.function), text);
}
