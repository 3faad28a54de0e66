#include "app_controller_status.h"

#include <utility>

#include <component/app_manager/create_application_status.h>
#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/plk/exceptions.h>

namespace app_manager {

AppControllerStatus::AppControllerStatus(std::string_view appName,
                                         std::shared_ptr<IApplicationController> controller)
    : m_appName(appName), m_controller(std::move(controller))
{
    ZIN_CHECK(!m_appName.empty(), "Application name is empty");
    ZIN_CHECK(m_controller, "Application controller is nullptr");
}

int AppControllerStatus::ReadyToInitialize()
{
    return m_controller->ReadyToInitialize(m_appName);
}

int AppControllerStatus::ReadyToShowUI()
{
    return m_controller->ReadyToShowUI(m_appName);
}

int AppControllerStatus::ReadyToShutdown()
{
    return m_controller->StateChanged(m_appName, states::ReadyToShutdown);
}

int AppControllerStatus::FinishWithInternalError(std::string_view error,
                                                 std::string_view description)
{
    return m_controller->FinishWithInternalError(m_appName, error, description);
}

int AppControllerStatus::StateChanged(long state)
{
    return m_controller->StateChanged(m_appName, state);
}

std::shared_ptr<IApplicationStatus> CreateApplicationStatusSPtr(
    std::string_view appName,
    std::shared_ptr<IApplicationController> controller)
{
    return std::make_shared<AppControllerStatus>(appName, std::move(controller));
}

}  // namespace app_manager
