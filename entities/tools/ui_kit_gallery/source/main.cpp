#include <clocale>
#include <cstdlib>
#include <iostream>

#include <QGuiApplication>

#include <component/logger/logger.h>
#include <shared/common/utils/bad_use.h>

#include "documentation.h"
#include "gallery.h"
#include "options.h"
#include "page_list.h"

namespace {

using namespace std::chrono_literals;
using tvo::logger::LogLevel;
using tvo::logger::TVOLogger;
using ui_kit_gallery::Gallery;
using ui_kit_gallery::Options;

constexpr int DoneStatus = 0;
constexpr int FailureStatus = 1;
constexpr int BadUseStatus = 2;

int Report(int status, const std::string& message)
{
    std::cerr << "ui_kit_gallery: " << message << '\n';
    return status;
}

int ListPages()
{
    for (const auto& name : ui_kit_gallery::PageNames())
        std::cout << name.toStdString() << '\n';
    return DoneStatus;
}

void SaveScreenshot(Gallery& gallery, const std::string& file)
{
    gallery.Settle(600ms);
    if (!gallery.Picture().save(QString::fromStdString(file)))
        throw std::runtime_error(file + " can not be written");
}

/// To be called with an application.
int Run(const Options& options)
{
    if (!options.docs.empty())
    {
        ui_kit_gallery::WriteDocumentation(QString::fromStdString(options.docs));
        return DoneStatus;
    }
    const bool isPicture = !options.screenshot.empty();
    Gallery gallery(isPicture ? Gallery::Motion::Still : Gallery::Motion::Live,
                    Gallery::Frame::Window,
                    QString::fromStdString(options.palette));
    gallery.Show(options.page.empty() ? ui_kit_gallery::PageNames().front()
                                      : QString::fromStdString(options.page));
    if (!isPicture)
        return QGuiApplication::exec();
    SaveScreenshot(gallery, options.screenshot);
    return DoneStatus;
}

int RunApplication(int argc, char** argv)
try
{
    const auto options = ui_kit_gallery::ParseOptions(argc, argv);
    if (!options.help.empty())
    {
        std::cout << options.help;
        return DoneStatus;
    }
    if (options.isList)
        return ListPages();
    if (options.scale > 0)
        ::setenv("QT_SCALE_FACTOR", std::to_string(options.scale).c_str(), 1);
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return Run(options);
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
    TVOLogger::Setup("UI_KIT", LogLevel::Off, nullptr);
    return RunApplication(argc, argv);
}
