#pragma once

#include <memory>
#include <string>

#include <component/app_manager/i_application_controller.h>
#include <component/app_manager/i_application_status.h>

namespace app_manager {

/// Fills in the application's name.
class AppControllerStatus final : public IApplicationStatus
{
public:
    AppControllerStatus(std::string_view appName,
                        std::shared_ptr<IApplicationController> controller);

    int ReadyToInitialize() override;
    int ReadyToShowUI() override;
    int ReadyToShutdown() override;
    int FinishWithInternalError(std::string_view error, std::string_view description) override;
    int StateChanged(long state) override;

private:
    std::string m_appName;
    std::shared_ptr<IApplicationController> m_controller;
};

}  // namespace app_manager
