#include "app_manager_proxy.h"

#include <utility>

#include <component/app_manager/tvo_ipc/create_application_manager.h>
#include <component/app_manager/tvo_ipc/service_names.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <shared/common/tvo/ipc/proxy/make_proxy.h>
#include <shared/ipc_utils/publish.h>

#include "app_commands_proxy.h"
#include "app_controller_proxy.h"
#include "app_watchdog_proxy.h"

namespace app_manager::proxy {

namespace {

using tvoipc_detail::api_v1::ResourceProvider;
using tvoipc_detail::api_v1::SharedResourceProvider;

constexpr std::uint32_t Infinite = 0xFFFFFFFFU;

/// Waits until there is a manager.
std::string FindManager()
{
    const auto target =
        ::shared::ipc_utils::FindConnectionTargetForType(service_names::Type, Infinite);
    ZIN_CHECK(
        target,
        "Connection target for ApplicationManager not found. Interface: " << service_names::Type);
    const auto& [server, service] = *target;
    TVO_LOG_AS(::tvo::logger::LogLevel::Info,
               "CreateApplicationManager",
               "Connection target for ApplicationManager is: server = {}, service = {}",
               server.data(),
               service.data());
    return server.data();
}

template <typename I>
tvoipc::ProxyPtr<I> Connect(const std::string& server,
                            const char* service,
                            const SharedResourceProvider& provider)
{
    tvoipc::api_v1::ConnectionBuilder<tvoipc::api_v1::ConnectViaDynamicChannel> builder(server,
                                                                                        service);
    return tvoipc::MakeProxy<I>(provider, builder.SetInfinite());
}

/// Connects all three before any is put to use, so that a refused one leaves nothing behind.
std::shared_ptr<IApplicationManager> ConnectToManager(std::string_view appName)
{
    const std::string server = FindManager();
    const auto provider = std::make_shared<ResourceProvider>(tvoipc::api_v1::ApplicationSettings{});
    auto controller =
        Connect<ApplicationController::Generated>(server, service_names::Controller, provider);
    auto commands =
        Connect<ApplicationCommands::Generated>(server, service_names::Commands, provider);
    auto watchdog =
        Connect<ApplicationWatchdog::Generated>(server, service_names::Watchdog, provider);
    return std::make_shared<ApplicationManagerProxy>(
        std::make_shared<ApplicationController>(std::move(controller)),
        std::make_shared<ApplicationCommands>(std::move(commands), appName),
        std::make_shared<ApplicationWatchdog>(std::move(watchdog)));
}

}  // namespace

ApplicationManagerProxy::ApplicationManagerProxy(std::shared_ptr<IApplicationController> controller,
                                                 std::shared_ptr<IApplicationCommands> commands,
                                                 std::shared_ptr<IApplicationWatchdog> watchdog)
    : m_controller(std::move(controller)),
      m_commands(std::move(commands)),
      m_watchdog(std::move(watchdog))
{
    ZIN_CHECK(m_controller, "IApplicationControllerPtr is nullptr!");
    ZIN_CHECK(m_commands, "IApplicationCommandsPtr is nullptr!");
    ZIN_CHECK(m_watchdog, "IApplicationWatchdogPtr is nullptr!");
}

std::shared_ptr<IApplicationController> ApplicationManagerProxy::GetApplicationController()
{
    return m_controller;
}

std::shared_ptr<IApplicationCommands> ApplicationManagerProxy::GetApplicationCommands()
{
    return m_commands;
}

std::shared_ptr<IApplicationWatchdog> ApplicationManagerProxy::GetApplicationWatchdog()
{
    return m_watchdog;
}

std::shared_ptr<IApplicationManager> CreateApplicationManager(std::string_view appName)
{
    try
    {
        return ConnectToManager(appName);
    }
    catch (...)
    {
        const auto [code, text] = plk::utils::ProcessException();
        TVO_LOG_CRITICAL("Cannot create application manager proxy, {} with result: {}", text, code);
        return nullptr;
    }
}

}  // namespace app_manager::proxy
