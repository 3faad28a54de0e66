#include <utility>

#include <component/plk/exceptions.h>
#include <shared/common_utils/settings/utils/functional_settings_observer.h>

namespace vdi::common_utils::settings::utils {

FunctionalSettingsObserver::FunctionalSettingsObserver(Callback callback)
    : m_callback(std::move(callback))
{
    ZIN_CHECK(m_callback != nullptr, "Callback is not initialized!");
}

int FunctionalSettingsObserver::OnSettingsUpdate(const nvl::Path& path, unsigned char update)
{
    return m_callback(path, update);
}

}  // namespace vdi::common_utils::settings::utils
