#include <utility>

#include <component/logger/logger.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>
#include <component/settings_manager/path_to_str.h>
#include <shared/common_utils/settings/utils/functional_settings_observer.h>
#include <shared/common_utils/settings/utils/setting_callback.h>

namespace vdi::common_utils::settings::utils {

namespace {

namespace update = settings_manager::update;

constexpr int RelevantUpdates = update::ValueChanged | update::AttributesChanged;

}  // namespace

SettingCallback::SettingCallback(
    nvl::Path path,
    std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> subscriber)
    : m_path(std::move(path)), m_subscriber(std::move(subscriber))
{}

SettingCallback::~SettingCallback()
{
    const std::lock_guard lock(m_registrationMutex);
    SetCallback(nullptr);
    m_subscription.reset();
}

void SettingCallback::RegisterCallback(std::function<void()> callback)
{
    const std::lock_guard lock(m_registrationMutex);
    if (m_callback != nullptr)
    {
        Subscribe();
        TVO_LOG_WARNING("Callback already registered");
        SetCallback(std::move(callback));
        return;
    }
    // It stands ready before the service knows of it: the first change may be reported at once.
    SetCallback(std::move(callback));
    try
    {
        Subscribe();
    }
    catch (...)
    {
        SetCallback(nullptr);
        throw;
    }
}

void SettingCallback::UnregisterCallback()
{
    const std::lock_guard lock(m_registrationMutex);
    m_subscription.reset();
    if (m_callback == nullptr)
    {
        TVO_LOG_WARNING("Callback already unregistered");
    }
    SetCallback(nullptr);
}

int SettingCallback::OnUpdate(const nvl::Path& changed, unsigned char update) noexcept
try
{
    if (!nvl::StartsWith(changed, m_path))
    {
        TVO_LOG_WARNING("Invalid setting path {} in update event", changed);
        return plk::codes::UnspecifiedError;
    }
    if ((update & RelevantUpdates) != 0)
    {
        Call();
    }
    return plk::codes::Ok;
}
catch (...)
{
    const auto [code, message] = plk::utils::ProcessException();
    TVO_LOG_ERROR("Setting callback of '{}' failed[{}]: {}", m_path, code, message);
    return plk::codes::UnspecifiedError;
}

void SettingCallback::Call() const
{
    std::unique_lock lock(m_callbackMutex);
    const auto callback = m_callback;
    lock.unlock();
    if (callback == nullptr)
    {
        TVO_LOG_DEBUG("Callback not set");
        return;
    }
    callback();
}

void SettingCallback::Subscribe()
{
    auto observer = std::make_shared<FunctionalSettingsObserver>(
        [this](const nvl::Path& changed, unsigned char update)
        { return OnUpdate(changed, update); });
    // The former subscription ends once the new one is live.
    m_subscription =
        std::make_unique<AutoSettingsUpdateSubscriber>(m_subscriber, m_path, std::move(observer));
}

void SettingCallback::SetCallback(std::function<void()> callback)
{
    // What is replaced dies without the lock.
    const std::lock_guard lock(m_callbackMutex);
    m_callback.swap(callback);
}

}  // namespace vdi::common_utils::settings::utils
