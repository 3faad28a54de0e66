#pragma once

#include <memory>
#include <shared_mutex>
#include <unordered_map>

#include <component/app_manager/i_application_commands.h>

#include "../idl/application_commands.h"

namespace app_manager::proxy {

/// Reads commands and tells of their changes, which arrive on a thread of its own. Without an
/// update handle there is no thread, and nothing is told.
class ApplicationCommands final : public IApplicationCommands, public ICommandChangedSubscriber
{
public:
    using Generated = tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationCommands;
    using GeneratedPtr = std::unique_ptr<Generated, tvoipc_detail::api_v1::IpcDeleter>;

    /// Fetches the update handle. That it gets none is logged and no failure.
    /// @throws zin::CheckFailedException  for a null proxy, or without a notice to wait on
    ApplicationCommands(GeneratedPtr proxy, std::string_view appName);

    /// Waits for a round of callbacks that is running.
    ~ApplicationCommands() override;

    ApplicationCommands(const ApplicationCommands&) = delete;
    ApplicationCommands& operator=(const ApplicationCommands&) = delete;

    /// Ends the process when the manager is gone.
    int GetCommand(std::string_view appName, long& command) noexcept override;

    CallbackId RegisterCallback(std::function<void()> callback) override;
    void UnregisterCallback(CallbackId id) override;

private:
    class NoticeProxy;

    unsigned int FetchUpdateHandle(std::string_view appName) const;
    void NotifyListeners();

    GeneratedPtr m_proxy;
    std::unique_ptr<NoticeProxy> m_noticeProxy;
    std::shared_mutex m_callbacksLock;  ///< guards what follows
    std::unordered_map<CallbackId, std::function<void()>> m_callbacks;
    CallbackId m_lastId = 0;
};

}  // namespace app_manager::proxy
