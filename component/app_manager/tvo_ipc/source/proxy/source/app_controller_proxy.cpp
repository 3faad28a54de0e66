#include "app_controller_proxy.h"

#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_code_text.h>
#include <component/plk/result_codes.h>

#include "to_bytes.h"

namespace app_manager::proxy {

namespace {

/// Makes the call, which stores the manager's result.
/// @param method  under whose name a failure is logged
/// @param called  the method that the line says was called
template <typename Call>
int Report(const char* method, const char* called, Call call)
{
    try
    {
        int result = plk::codes::UnspecifiedError;
        call(result);
        return result;
    }
    catch (...)
    {
        const auto [code, text] = plk::utils::ProcessException();
        TVO_LOG_AS(::tvo::logger::LogLevel::Critical,
                   method,
                   "Failed to call {}, {} with result: {}",
                   called,
                   text,
                   plk::zinx::ResultCodeText(code));
        return code;
    }
}

}  // namespace

ApplicationController::ApplicationController(GeneratedPtr proxy) : m_proxy(std::move(proxy))
{
    ZIN_CHECK(m_proxy, "generated ApplicationController proxy is nullptr!");
}

int ApplicationController::StartApplication(std::string_view appName)
{
    TVO_LOG_DEBUG("Proxy: ApplicationController::StartApplication {}", appName);
    return Report("StartApplication",
                  "StartApplication",
                  [&](int& result) { m_proxy->StartApplication(ToBytes(appName), result); });
}

int ApplicationController::ReadyToInitialize(std::string_view appName)
{
    TVO_LOG_DEBUG("Proxy: ApplicationController::ReadyToInitialize {}", appName);
    return Report("ReadyToInitialize",
                  "ReadyToInitialize",
                  [&](int& result) { m_proxy->ReadyToInitialize(ToBytes(appName), result); });
}

int ApplicationController::ReadyToShowUI(std::string_view appName)
{
    TVO_LOG_DEBUG("Proxy: ApplicationController::ReadyToShowUI {}", appName);
    // Logs are searched for this line, which has always named the other method.
    return Report("ReadyToShowUI",
                  "FinishWithInternalError",
                  [&](int& result) { m_proxy->ReadyToShowUI(ToBytes(appName), result); });
}

int ApplicationController::FinishWithInternalError(std::string_view appName,
                                                   std::string_view error,
                                                   std::string_view description)
{
    TVO_LOG_DEBUG(
        "Proxy: ApplicationController::FinishWithInternalError, appName: {}, error: {} - {}",
        appName,
        error,
        description);
    return Report("FinishWithInternalError",
                  "FinishWithInternalError",
                  [&](int& result)
                  {
                      m_proxy->FinishWithInternalError(
                          ToBytes(appName), ToBytes(error), ToBytes(description), result);
                  });
}

int ApplicationController::StateChanged(std::string_view appName, long state)
{
    TVO_LOG_DEBUG(
        "Proxy: ApplicationController::StateChanged, appName: {}, state: {}", appName, state);
    return Report("StateChanged",
                  "StateChanged",
                  [&](int& result) { m_proxy->StateChanged(ToBytes(appName), state, result); });
}

}  // namespace app_manager::proxy
