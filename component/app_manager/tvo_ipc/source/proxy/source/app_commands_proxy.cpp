#include "app_commands_proxy.h"

#include <mutex>
#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_code_text.h>
#include <component/plk/result_codes.h>
#include <shared/common_utils/app_utils/notice/notice_api.h>
#include <shared/common_utils/app_utils/notice/notice_factory.h>
#include <xo/handle.h>

#include "notice_proxy.h"
#include "to_bytes.h"

namespace app_manager::proxy {

namespace notice = ::common_utils::app_utils::notice;

ApplicationCommands::ApplicationCommands(GeneratedPtr proxy, std::string_view appName)
    : m_proxy(std::move(proxy)),
      m_noticeProxy(std::make_unique<NoticeProxy>(
          *this,
          std::make_shared<notice::NoticeFactory>(std::make_shared<notice::NoticeApi>())))
{
    ZIN_CHECK(m_proxy, "generated ApplicationCommands proxy is nullptr!");
    if (const unsigned int handle = FetchUpdateHandle(appName); handle != XoInvalidHandle)
    {
        m_noticeProxy->Start(handle);
    }
}

ApplicationCommands::~ApplicationCommands()
{
    {
        const std::unique_lock lock(m_callbacksLock);
        m_callbacks.clear();
    }
    // The thread uses the lock and the callbacks, so it ends before the members go.
    m_noticeProxy.reset();
}

int ApplicationCommands::GetCommand(std::string_view appName, long& command) noexcept
{
    TVO_LOG_DEBUG("Proxy: ApplicationCommands::GetCommand {} {}", appName, command);
    int result = plk::codes::Ok;
    m_proxy->GetCommand(ToBytes(appName), command, result);
    return result;
}

CallbackId ApplicationCommands::RegisterCallback(std::function<void()> callback)
{
    ZIN_CHECK(callback, "callback is nullptr");
    const std::unique_lock lock(m_callbacksLock);
    m_callbacks.emplace(++m_lastId, std::move(callback));
    return m_lastId;
}

void ApplicationCommands::UnregisterCallback(CallbackId id)
{
    std::unique_lock lock(m_callbacksLock);
    const bool isKnown = m_callbacks.erase(id) != 0;
    lock.unlock();
    if (!isKnown)
    {
        TVO_LOG_WARNING("Trying to unregister callback with not existent id: {}", id);
    }
}

/// @returns XoInvalidHandle after a line in the log when there is none to be had
unsigned int ApplicationCommands::FetchUpdateHandle(std::string_view appName) const
{
    unsigned int handle = XoInvalidHandle;
    try
    {
        m_proxy->GetUpdateHandle(ToBytes(appName), handle);
        ZIN_CHECK(handle != XoInvalidHandle, "m_proxy->GetUpdateHandle returned INVALID_HANDLE!");
    }
    catch (...)
    {
        TVO_LOG_AS(::tvo::logger::LogLevel::Info,
                   "ApplicationCommands",
                   "ApplicationCommandsProxy: Failed to get update Handle: Exception");
    }
    return handle;
}

void ApplicationCommands::NotifyListeners()
{
    try
    {
        const std::shared_lock lock(m_callbacksLock);
        for (const auto& [id, callback] : m_callbacks)
        {
            callback();
        }
    }
    catch (...)
    {
        const auto [code, text] = plk::utils::ProcessException();
        TVO_LOG_CRITICAL(
            "Failed to notify callback, {} with result: {}", text, plk::zinx::ResultCodeText(code));
    }
}

}  // namespace app_manager::proxy
