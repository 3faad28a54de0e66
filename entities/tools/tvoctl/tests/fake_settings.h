#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <component/plk/result_codes.h>
#include <component/settings_manager/i_settings_manager.h>

#include "settings/path_argument.h"
#include "settings/tree_place.h"

namespace tvoctl {

/// A store of settings in memory, without lists. Notes each write that it is asked for. Observers
/// are told by the test.
class FakeSettings final : public settings_manager::ISettingsManager,
                           public settings_manager::ISettingsCreator,
                           public settings_manager::ISettingsGetter,
                           public settings_manager::ISettingsValueSetter,
                           public settings_manager::ISettingsSetter,
                           public settings_manager::ISettingsDeleter,
                           public settings_manager::ISettingsUpdateSubscriber,
                           public std::enable_shared_from_this<FakeSettings>
{
public:
    using Setting = settings_manager::Setting;
    using Attributes = settings_manager::Attributes;

    std::optional<Setting> root = Setting{Setting::Map()};
    int refusal = 0;  ///< the answer to everything, unless 0
    std::vector<std::string> writes;
    std::function<void()> beforeCreate = [] {
    };  ///< once
    std::function<void()> afterSubscribe = [] {
    };
    std::map<settings_manager::SubscriptionId,
             std::shared_ptr<settings_manager::ISettingsUpdateObserver>>
        observers;

    void Tell(const std::string& path, unsigned char kinds)
    {
        observers.rbegin()->second->OnSettingsUpdate(ParsePath(path), kinds);
    }

    int CreateSetting(const nvl::Path& path, const Setting& setting) override
    {
        std::exchange(beforeCreate, [] {})();
        return Write("create", path, Refusal(path, false), setting);
    }

    int GetAttribute(const nvl::Path& path, Attributes& attributes) const override
    {
        Setting setting;
        const int code = GetSetting(path, setting);
        attributes = code == 0 ? setting.attributes : attributes;
        return code;
    }

    int GetSetting(const nvl::Path& path, Setting& setting) const override
    {
        const int code = Refusal(path, true);
        if (code == 0)
        {
            setting = *FindPlace(*root, path);
        }
        return code;
    }

    int SetValue(const nvl::Path& path, const nvl::TValue<Setting>& value) override
    {
        Setting setting = ToSetting(value);
        GetAttribute(path, setting.attributes);
        return Write("value", path, Refusal(path, true), setting);
    }

    int SetAttribute(const nvl::Path& path, const Attributes& attributes) override
    {
        Setting setting;
        GetSetting(path, setting);
        setting.attributes = attributes;
        return Write("attribute", path, Refusal(path, true), setting);
    }

    int SetSetting(const nvl::Path& path, const Setting& setting) override
    {
        return Write("setting", path, Refusal(path, true), setting);
    }

    int DeleteSetting(const nvl::Path& path) override
    {
        return Write("delete", path, Refusal(path, true), std::nullopt);
    }

    int Subscribe(const nvl::Path& /*path*/,
                  std::shared_ptr<settings_manager::ISettingsUpdateObserver> observer,
                  settings_manager::SubscriptionId& sid) override
    {
        sid = ++m_lastSid;
        observers.emplace(sid, std::move(observer));
        std::exchange(afterSubscribe, [] {})();
        return refusal;
    }

    int Unsubscribe(settings_manager::SubscriptionId sid) override
    {
        return observers.erase(sid) != 0 ? 0 : plk::codes::NotFound;
    }

    // clang-format off
    int GetSettingsCreator(std::shared_ptr<ISettingsCreator>& face) override { return Give(face); }
    int GetSettingsGetter(std::shared_ptr<ISettingsGetter>& face) override { return Give(face); }
    int GetSettingsValueSetter(std::shared_ptr<ISettingsValueSetter>& face) override { return Give(face); }
    int GetSettingsSetter(std::shared_ptr<ISettingsSetter>& face) override { return Give(face); }
    int GetSettingsDeleter(std::shared_ptr<ISettingsDeleter>& face) override { return Give(face); }
    int GetSettingsUpdateSubscriber(std::shared_ptr<ISettingsUpdateSubscriber>& face) override { return Give(face); }
    // clang-format on

private:
    template <class T>
    int Give(std::shared_ptr<T>& face)
    {
        face = shared_from_this();
        return 0;
    }

    [[nodiscard]] int Refusal(const nvl::Path& path, bool isToBeThere) const
    {
        const bool isThere = FindPlace(*root, path) != nullptr;
        const bool hasParent =
            path.empty() || FindPlace(*root, Levels(path).first(path.size() - 1)) != nullptr;
        if (refusal != 0)
        {
            return refusal;
        }
        if (isToBeThere ? !isThere : !hasParent)
        {
            return plk::codes::NotFound;
        }
        return isThere && !isToBeThere ? plk::codes::Found : 0;
    }

    int Write(const char* what, const nvl::Path& path, int code, std::optional<Setting> now)
    {
        writes.push_back(std::string(what) + ' ' + PathText(path));
        if (code == 0)
        {
            PutPlace(root, path, std::move(now));
        }
        return code;
    }

    settings_manager::SubscriptionId m_lastSid = 0;
};

}  // namespace tvoctl
