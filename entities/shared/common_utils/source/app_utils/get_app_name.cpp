#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <shared/common_utils/app_utils/get_app_name.h>

namespace common_utils::app_utils {

std::string_view GetAppName(int argc, const char** argv)
{
    ZIN_CHECK(argc >= 1 && *argv[0] != '\0', "The process was started without a name");
    return argv[0];
}

std::string_view GetAppNameOrDefault(int argc, const char** argv, std::string_view fallback)
{
    try
    {
        return GetAppName(argc, argv);
    }
    catch (...)
    {
        const auto [code, message] = ::plk::utils::ProcessException();
        TVO_LOG_ERROR("Failed to get an app name[{}]: {}", code, message);
        return fallback;
    }
}

}  // namespace common_utils::app_utils
