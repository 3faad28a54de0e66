#pragma once

#include <QtGlobal>

class QMessageLogContext;
class QString;

/// The bridge from Qt's own messages to the process's log.
class QtLoggerSupport
{
public:
    QtLoggerSupport() = delete;

    /// For qInstallMessageHandler. Any thread.
    static void MessageHandler(QtMsgType type,
                               const QMessageLogContext& context,
                               const QString& message);
};
