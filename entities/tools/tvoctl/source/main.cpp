#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <thread>

#include <component/logger/logger.h>
#include <tvo/platform_log.h>

#include "run.h"
#include "settings_service.h"
#include "signals.h"

namespace {

using tvo::logger::LogLevel;
using tvo::logger::TVOLogger;

/// How often a watched service is looked at.
constexpr std::chrono::milliseconds WatchPause{500};

void LogPlatformLine(TvoPlatformLogLevel level, const char* text)
{
    TVO_LOG_AS(static_cast<LogLevel>(level), "Platform", "{}", text);
}

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
    TvoPlatformSetLog(&LogPlatformLine);
    tvoctl::Output out(std::cout);
    tvoctl::Environment environment{.connectSettings = &tvoctl::ConnectSettingsService,
                                    .endOnSignals = [&out] { tvoctl::EndOnSignals(out); },
                                    .keepWatching = &KeepWatching,
                                    .in = std::cin,
                                    .out = out};
    // Without the destructors: a proxy waits up to two seconds for its callback thread.
    std::_Exit(tvoctl::Run(argc, argv, environment, std::cerr));
}
