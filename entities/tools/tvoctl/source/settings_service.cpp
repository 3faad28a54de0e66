#include "settings_service.h"

#include <cstdint>
#include <thread>

#include <fmt/format.h>

#include <component/settings_manager/tvo_ipc/create_settings_manager.h>
#include <component/settings_manager/tvo_ipc/service_names.h>
#include <xo/connection.h>
#include <xo/handle.h>
#include <xo/result.h>

#include "failure.h"

namespace tvoctl {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint32_t VerdictLimitMs = 5000;
constexpr std::chrono::milliseconds Pause{50};

/// A proxy would wait minutes for a service that is not there.
int TryService(const std::string& server)
{
    std::uint32_t handle = XoInvalidHandle;
    std::uint32_t riid = 0;
    const int result = XoCmConnect(
        server.c_str(), settings_manager::service_names::Ism, VerdictLimitMs, &handle, &riid);
    if (result == XoOk)
    {
        XoHandleClose(handle);
    }
    return result;
}

void WaitForService(const std::string& server, std::chrono::milliseconds patience)
{
    const auto end = Clock::now() + patience;
    int result = TryService(server);
    while (result == XoObjectGone && Clock::now() < end)
    {
        std::this_thread::sleep_for(Pause);
        result = TryService(server);
    }
    if (result != XoOk)
    {
        throw Failure(ExitStatus::NoService,
                      fmt::format("the settings service '{}' is not there", server));
    }
}

}  // namespace

std::shared_ptr<settings_manager::ISettingsManager> ConnectSettingsService(
    const std::string& server,
    std::chrono::milliseconds patience)
{
    WaitForService(server, patience);
    const settings_manager::ipc::SettingsManagerCmConfig config{server.c_str(), VerdictLimitMs, 0};
    std::shared_ptr<settings_manager::ISettingsManager> manager;
    if (settings_manager::ipc::CreateSettingsManager(config, manager) < 0)
    {
        throw Failure(ExitStatus::NoService,
                      fmt::format("the settings service '{}' takes no connections", server));
    }
    return manager;
}

}  // namespace tvoctl
