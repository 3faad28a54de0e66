#pragma once

#include <memory>
#include <optional>

#include <component/nvl/path.h>
#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/setting.h>

namespace tvoctl {

/// A store of settings whose refusals are failures. Each operation throws Failure: Refused, or
/// NoService when the service has gone.
class Store
{
public:
    /// @param manager  lives on with its parts that are used here
    explicit Store(settings_manager::ISettingsManager& manager);

    /// Nothing when there is no such setting.
    [[nodiscard]] std::optional<settings_manager::Setting> Find(const nvl::Path& path) const;

    /// Refused when there is no such setting.
    [[nodiscard]] settings_manager::Setting Get(const nvl::Path& path) const;

    [[nodiscard]] settings_manager::Attributes GetAttributes(const nvl::Path& path) const;
    [[nodiscard]] bool Exists(const nvl::Path& path) const;

    /// Writes the value and leaves the attributes alone.
    void SetValue(const nvl::Path& path, const settings_manager::Setting& setting);

    void SetAttributes(const nvl::Path& path, const settings_manager::Attributes& attributes);
    void Delete(const nvl::Path& path);

    /// Creates a setting and the maps that are missing above it, in one transaction.
    void Create(const nvl::Path& path, const settings_manager::Setting& setting);

    /// Writes the value of a setting that may be missing, with the maps above it; in one
    /// transaction.
    void SetOrCreateValue(const nvl::Path& path, const settings_manager::Setting& setting);

    /// The same with the attributes.
    void SetOrCreateSetting(const nvl::Path& path, const settings_manager::Setting& setting);

    settings_manager::SubscriptionId Subscribe(
        const nvl::Path& path,
        const std::shared_ptr<settings_manager::ISettingsUpdateObserver>& observer);

    /// Whatever the service says, the observer is not called any more.
    void Unsubscribe(settings_manager::SubscriptionId sid) noexcept;

private:
    int TryCreate(const nvl::Path& path, const settings_manager::Setting& setting);

    template <class Set>
    void SetOrCreate(const nvl::Path& path, const settings_manager::Setting& setting, Set set);

    std::shared_ptr<settings_manager::ISettingsCreator> m_creator;
    std::shared_ptr<settings_manager::ISettingsGetter> m_getter;
    std::shared_ptr<settings_manager::ISettingsValueSetter> m_valueSetter;
    std::shared_ptr<settings_manager::ISettingsSetter> m_setter;
    std::shared_ptr<settings_manager::ISettingsDeleter> m_deleter;
    std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> m_subscriber;
};

}  // namespace tvoctl
