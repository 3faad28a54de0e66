#include <clocale>
#include <iostream>

#include <QGuiApplication>

#include <component/logger/logger.h>
#include <shared/common/utils/bad_use.h>

#include "options.h"
#include "taskbar.h"

namespace {

using taskbar_preview::Taskbar;
using tvo::logger::LogLevel;
using tvo::logger::TVOLogger;

constexpr int DoneStatus = 0;
constexpr int FailureStatus = 1;
constexpr int BadUseStatus = 2;

int Report(int status, const std::string& message)
{
    std::cerr << "taskbar_preview: " << message << '\n';
    return status;
}

int Run(int argc, char** argv)
try
{
    const auto options = taskbar_preview::ParseOptions(argc, argv);
    if (!options.help.empty())
    {
        std::cout << options.help;
        return DoneStatus;
    }
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    Taskbar taskbar(options, std::cout);
    if (options.screenshot.empty())
        return QGuiApplication::exec();
    if (!taskbar.Picture().save(QString::fromStdString(options.screenshot)))
        throw std::runtime_error(options.screenshot + " can not be written");
    return DoneStatus;
}
catch (const ::common::utils::BadUse& error)
{
    return Report(BadUseStatus, error.what());
}
catch (const std::exception& error)
{
    return Report(FailureStatus, error.what());
}

}  // namespace

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "C.UTF-8");
    TVOLogger::Setup("TASKBAR", LogLevel::Warning, nullptr);
    return Run(argc, argv);
}
