#include <clocale>
#include <csignal>
#include <iostream>

#include <component/logger/logger.h>
#include <shared/common/utils/platform_log.h>

#include "run.h"
#include "service.h"

namespace {

using tvo::logger::LogLevel;
using tvo::logger::TVOLogger;

}  // namespace

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "C.UTF-8");
    // A server or a reader of the output that goes away is a failure to report.
    std::signal(SIGPIPE, SIG_IGN);
    // Callers read standard error: one line of the program's own, and no log unless asked for.
    TVOLogger::Setup("CRT_ASK", LogLevel::Off, nullptr);
    ::common::utils::LogPlatformLines();
    return cert_approve::Run(argc, argv, &cert_approve::AskService, std::cout, std::cerr);
}
