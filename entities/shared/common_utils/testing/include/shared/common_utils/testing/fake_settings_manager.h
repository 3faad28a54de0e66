#pragma once

#include <functional>
#include <map>
#include <memory>

#include <gmock/gmock.h>

#include <component/plk/result_codes.h>
#include <component/settings_manager/i_settings_manager.h>

namespace settings_manager::testing {

/// Settings in memory in place of the service's, for one thread at a time.
class FakeSettingsManager final : public ISettingsManager,
                                  public ISettingsGetter,
                                  public ISettingsValueSetter,
                                  public ISettingsUpdateSubscriber,
                                  public std::enable_shared_from_this<FakeSettingsManager>
{
public:
    using Observer = std::shared_ptr<ISettingsUpdateObserver>;

    MOCK_METHOD(int, GetSettingsCreator, (std::shared_ptr<ISettingsCreator>&), (override));
    MOCK_METHOD(int, GetSettingsSetter, (std::shared_ptr<ISettingsSetter>&), (override));
    MOCK_METHOD(int, GetSettingsDeleter, (std::shared_ptr<ISettingsDeleter>&), (override));
    int GetSettingsGetter(std::shared_ptr<ISettingsGetter>& part) override
    {
        return HandOut(part);
    }
    int GetSettingsValueSetter(std::shared_ptr<ISettingsValueSetter>& part) override
    {
        return HandOut(part);
    }
    int GetSettingsUpdateSubscriber(std::shared_ptr<ISettingsUpdateSubscriber>& part) override
    {
        return HandOut(part);
    }

    int GetAttribute(const nvl::Path& path, Attributes& attributes) const override
    {
        attributes = settings.at(path).attributes;
        return result;
    }
    int GetSetting(const nvl::Path& path, Setting& setting) const override
    {
        if (settings.count(path) == 0)
        {
            return plk::codes::NotFound;
        }
        setting = settings.at(path);
        return result;
    }
    int SetValue(const nvl::Path& path, const nvl::TValue<Setting>& value) override
    {
        settings[path].value = ToSetting(value).value;
        return result;
    }
    int Subscribe(const nvl::Path&, Observer observer, SubscriptionId& sid) override
    {
        onSubscribe(*observer);
        if (result >= 0)
        {
            observers[sid = ++m_lastSid] = std::move(observer);
        }
        return result;
    }
    int Unsubscribe(SubscriptionId sid) override
    {
        onUnsubscribe();
        observers.erase(sid);
        return result;
    }

    std::map<nvl::Path, Setting> settings;
    std::map<SubscriptionId, Observer> observers;
    int result = plk::codes::Ok;  ///< of every operation on a setting
    int partsLeft = 1000;         ///< how many of the interfaces are handed out
    std::function<void(ISettingsUpdateObserver&)> onSubscribe = [](auto&) {
    };
    std::function<void()> onUnsubscribe = [] {
    };

private:
    template <class Interface>
    int HandOut(std::shared_ptr<Interface>& part)
    {
        part = --partsLeft < 0 ? nullptr : shared_from_this();
        return part != nullptr ? plk::codes::Ok : plk::codes::InterfaceNotSupported;
    }

    SubscriptionId m_lastSid = 0;
};

}  // namespace settings_manager::testing
