#pragma once

#include <cstdint>
#include <memory>

#include <component/nvl/path.h>
#include <component/nvl/value.h>
#include <component/settings_manager/setting.h>

/// The settings of the terminal as their users see them. Every operation blocks until the service
/// has answered, may be called from any thread, lets no exception out and returns a result code of
/// <component/plk/result_codes.h>, negative for failure. Outputs keep their value on failure.
namespace settings_manager {

/// Names a subscription; 0 stands for none.
using SubscriptionId = std::uint64_t;

/// What has happened at a path; an update joins them by "or".
namespace update {

inline constexpr unsigned char Created = 1;
inline constexpr unsigned char ValueChanged = 2;
inline constexpr unsigned char AttributesChanged = 4;
inline constexpr unsigned char Deleted = 8;

}  // namespace update

/// Writes settings that are not there yet.
class ISettingsCreator
{
public:
    virtual ~ISettingsCreator() = default;

    virtual int CreateSetting(const nvl::Path& path, const Setting& setting) = 0;
};

class ISettingsGetter
{
public:
    virtual ~ISettingsGetter() = default;

    virtual int GetAttribute(const nvl::Path& path, Attributes& attributes) const = 0;

    /// Reads a setting with all that is below it.
    virtual int GetSetting(const nvl::Path& path, Setting& setting) const = 0;
};

/// Writes values and leaves attributes alone.
class ISettingsValueSetter
{
public:
    virtual ~ISettingsValueSetter() = default;

    virtual int SetValue(const nvl::Path& path, const nvl::TValue<Setting>& value) = 0;
};

class ISettingsSetter
{
public:
    virtual ~ISettingsSetter() = default;

    virtual int SetAttribute(const nvl::Path& path, const Attributes& attributes) = 0;

    /// Writes value and attributes.
    virtual int SetSetting(const nvl::Path& path, const Setting& setting) = 0;
};

class ISettingsDeleter
{
public:
    virtual ~ISettingsDeleter() = default;

    /// Deletes a setting with all that is below it.
    virtual int DeleteSetting(const nvl::Path& path) = 0;
};

/// Is told of changes. An observer must not unsubscribe, nor make or drop a settings manager: it
/// would wait for itself. It may read and write settings.
class ISettingsUpdateObserver
{
public:
    virtual ~ISettingsUpdateObserver() = default;

    /// Called on the callback thread that all settings managers of one service share.
    /// @param path    at or below the subscribed one
    /// @param update  kinds of `settings_manager::update`
    /// @returns a code that is only logged
    virtual int OnSettingsUpdate(const nvl::Path& path, unsigned char update) = 0;
};

class ISettingsUpdateSubscriber
{
public:
    virtual ~ISettingsUpdateSubscriber() = default;

    /// Subscribes to the changes at and below a path. The first may be reported before this
    /// returns.
    /// @param observer  kept until the subscription ends; null for nobody
    virtual int Subscribe(const nvl::Path& path,
                          std::shared_ptr<ISettingsUpdateObserver> observer,
                          SubscriptionId& sid) = 0;

    /// Ends a subscription, also when the service fails to. Waits for a running observer; after the
    /// return it is not called again.
    /// @returns `NotFound` for a subscription that is not there
    virtual int Unsubscribe(SubscriptionId sid) = 0;
};

/// One store of settings. Hands itself out by the task at hand; each getter gives
/// `InterfaceNotSupported` where that is not possible.
class ISettingsManager
{
public:
    virtual ~ISettingsManager() = default;

    virtual int GetSettingsCreator(std::shared_ptr<ISettingsCreator>& creator) = 0;
    virtual int GetSettingsGetter(std::shared_ptr<ISettingsGetter>& getter) = 0;
    virtual int GetSettingsValueSetter(std::shared_ptr<ISettingsValueSetter>& setter) = 0;
    virtual int GetSettingsSetter(std::shared_ptr<ISettingsSetter>& setter) = 0;
    virtual int GetSettingsDeleter(std::shared_ptr<ISettingsDeleter>& deleter) = 0;
    virtual int GetSettingsUpdateSubscriber(
        std::shared_ptr<ISettingsUpdateSubscriber>& subscriber) = 0;
};

}  // namespace settings_manager
