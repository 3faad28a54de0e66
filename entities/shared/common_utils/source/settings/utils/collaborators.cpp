#include <component/plk/exceptions.h>
#include <shared/common_utils/settings/utils/collaborators.h>

namespace vdi::common_utils::settings::utils {

using settings_manager::ISettingsGetter;
using settings_manager::ISettingsManager;
using settings_manager::ISettingsUpdateSubscriber;
using settings_manager::ISettingsValueSetter;

namespace {

template <class Interface>
std::shared_ptr<Interface> Require(const std::shared_ptr<ISettingsManager>& manager,
                                   int (ISettingsManager::*get)(std::shared_ptr<Interface>&),
                                   const char* failure)
{
    ZIN_CHECK(manager != nullptr, " SettingsManager is not initialized!");
    std::shared_ptr<Interface> found;
    (*manager.*get)(found);
    ZIN_CHECK(found != nullptr, failure);
    return found;
}

}  // namespace

nvl::Path RequirePath(nvl::Path path)
{
    ZIN_CHECK(!path.empty(), "Setting path is empty!");
    return path;
}

std::shared_ptr<ISettingsGetter> RequireGetter(const std::shared_ptr<ISettingsManager>& manager)
{
    return Require(manager, &ISettingsManager::GetSettingsGetter, "SettingsGetter is null");
}

std::shared_ptr<ISettingsValueSetter> RequireValueSetter(
    const std::shared_ptr<ISettingsManager>& manager)
{
    return Require(
        manager, &ISettingsManager::GetSettingsValueSetter, "SettingsValueSetter is null");
}

std::shared_ptr<ISettingsUpdateSubscriber> RequireUpdateSubscriber(
    const std::shared_ptr<ISettingsManager>& manager)
{
    return Require(manager,
                   &ISettingsManager::GetSettingsUpdateSubscriber,
                   "SettingsUpdateSubscriber is null");
}

}  // namespace vdi::common_utils::settings::utils
