#include <component/logger/logger.h>
#include <shared/common/utils/platform_log.h>
#include <tvo/platform_log.h>

namespace common::utils {
namespace {

void LogLine(TvoPlatformLogLevel level, const char* text)
{
    TVO_LOG_AS(static_cast<tvo::logger::LogLevel>(level), "Platform", "{}", text);
}

}  // namespace

void LogPlatformLines()
{
    TvoPlatformSetLog(&LogLine);
}

}  // namespace common::utils
