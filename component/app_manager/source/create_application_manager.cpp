#include <component/app_manager/create_application_manager.h>
#include <component/app_manager/tvo_ipc/create_application_manager.h>

namespace app_manager {

std::shared_ptr<IApplicationManager> CreateApplicationManager(std::string_view appName)
{
    return proxy::CreateApplicationManager(appName);
}

}  // namespace app_manager
