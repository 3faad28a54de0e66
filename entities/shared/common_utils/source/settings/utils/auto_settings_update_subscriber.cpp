#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/result_code_text.h>
#include <shared/common_utils/settings/utils/auto_settings_update_subscriber.h>

namespace vdi::common_utils::settings::utils {

AutoSettingsUpdateSubscriber::AutoSettingsUpdateSubscriber(
    std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> subscriber,
    const nvl::Path& path,
    std::shared_ptr<settings_manager::ISettingsUpdateObserver> observer)
    : m_subscriber(std::move(subscriber))
{
    ZIN_CHECK_RESULT(m_subscriber->Subscribe(path, std::move(observer), m_sid), "");
}

AutoSettingsUpdateSubscriber::~AutoSettingsUpdateSubscriber()
{
    if (const int result = m_subscriber->Unsubscribe(m_sid); result < 0)
    {
        TVO_LOG_ERROR("ISettingsUpdateSubscriber::Unsubscribe failed, error = {}",
                      plk::zinx::ResultCodeText(result));
    }
}

}  // namespace vdi::common_utils::settings::utils
