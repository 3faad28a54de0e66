#include <chrono>
#include <clocale>
#include <csignal>
#include <iostream>
#include <thread>

#include <component/logger/logger.h>
#include <shared/common/utils/platform_log.h>

#include "run.h"
#include "services/terminal_services.h"
#include "settings_service.h"
#include "signals.h"

namespace {

using tvo::logger::LogLevel;
using tvo::logger::TVOLogger;

/// How often a watched service is looked at.
constexpr std::chrono::milliseconds WatchPause{500};

bool KeepWatching()
{
    std::this_thread::sleep_for(WatchPause);
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "C.UTF-8");
    // A reader of the output that goes away is a failure to report.
    std::signal(SIGPIPE, SIG_IGN);
    // Callers read standard error: one line of the program's own, and no log unless asked for.
    TVOLogger::Setup("TVO_CTL", LogLevel::Off, nullptr);
    ::common::utils::LogPlatformLines();
    tvoctl::Output out(std::cout);
    tvoctl::Environment environment{.connectSettings = &tvoctl::ConnectSettingsService,
                                    .connectManager = [](std::chrono::milliseconds patience)
                                    { return app_manager::control::ConnectControl(patience); },
                                    .listServices = &tvoctl::ListTerminalServices,
                                    .endOnSignals = [&out] { tvoctl::EndOnSignals(out); },
                                    .keepWatching = &KeepWatching,
                                    .in = std::cin,
                                    .out = out};
    return tvoctl::Run(argc, argv, environment, std::cerr);
}
