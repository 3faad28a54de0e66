#include "store.h"

#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include <component/plk/result_code_text.h>
#include <component/plk/result_codes.h>

#include "../failure.h"
#include "path_argument.h"

namespace tvoctl {
namespace {

using settings_manager::Attributes;
using settings_manager::ISettingsManager;
using settings_manager::Setting;
namespace codes = plk::codes;

/// How often others may make or delete settings under our hands before we give up.
constexpr int MaxTries = 16;

/// @param done  what cannot be done, with "{}" for the path
void Check(int code, std::string_view done, const nvl::Path& path)
{
    if (code >= 0)
    {
        return;
    }
    if (code == codes::MediaError)
    {
        throw Failure(ExitStatus::NoService, "the settings service has gone");
    }
    throw Failure(
        ExitStatus::Refused,
        fmt::format("cannot {} '{}': {}", done, PathText(path), plk::zinx::ResultCodeText(code)));
}

template <class T>
std::shared_ptr<T> Take(ISettingsManager& manager,
                        int (ISettingsManager::*getter)(std::shared_ptr<T>&))
{
    std::shared_ptr<T> face;
    const int code = (manager.*getter)(face);
    if (code < 0 || !face)
    {
        throw Failure(ExitStatus::NoService, "the settings service cannot be used");
    }
    return face;
}

nvl::Path ParentOf(const nvl::Path& path)
{
    nvl::Path parent = path;
    parent.pop_back();
    return parent;
}

Setting WrapInMap(const nvl::Level& level, Setting child)
{
    const auto* const name = std::get_if<std::string>(&level);
    if (name == nullptr)
    {
        throw Failure(ExitStatus::Refused, "an element needs its list, which is missing");
    }
    Setting::Map map;
    map.emplace(*name, std::move(child));
    return {std::move(map)};
}

}  // namespace

Store::Store(ISettingsManager& manager)
    : m_creator(Take(manager, &ISettingsManager::GetSettingsCreator)),
      m_getter(Take(manager, &ISettingsManager::GetSettingsGetter)),
      m_valueSetter(Take(manager, &ISettingsManager::GetSettingsValueSetter)),
      m_setter(Take(manager, &ISettingsManager::GetSettingsSetter)),
      m_deleter(Take(manager, &ISettingsManager::GetSettingsDeleter)),
      m_subscriber(Take(manager, &ISettingsManager::GetSettingsUpdateSubscriber))
{}

std::optional<Setting> Store::Find(const nvl::Path& path) const
{
    Setting setting;
    const int code = m_getter->GetSetting(path, setting);
    if (code == codes::NotFound)
    {
        return std::nullopt;
    }
    Check(code, "read", path);
    return setting;
}

Setting Store::Get(const nvl::Path& path) const
{
    Setting setting;
    Check(m_getter->GetSetting(path, setting), "read", path);
    return setting;
}

Attributes Store::GetAttributes(const nvl::Path& path) const
{
    Attributes attributes;
    Check(m_getter->GetAttribute(path, attributes), "read", path);
    return attributes;
}

bool Store::Exists(const nvl::Path& path) const
{
    Attributes attributes;
    const int code = m_getter->GetAttribute(path, attributes);
    if (code != codes::NotFound)
    {
        Check(code, "read", path);
    }
    return code != codes::NotFound;
}

void Store::SetValue(const nvl::Path& path, const Setting& setting)
{
    Check(m_valueSetter->SetValue(path, ToValue(setting)), "set", path);
}

void Store::SetAttributes(const nvl::Path& path, const Attributes& attributes)
{
    Check(m_setter->SetAttribute(path, attributes), "set the attributes of", path);
}

void Store::Delete(const nvl::Path& path)
{
    Check(m_deleter->DeleteSetting(path), "delete", path);
}

/// Creates the topmost setting that is missing, with all that leads to the one that is wanted.
/// @returns `Found` when the wanted one is there
int Store::TryCreate(const nvl::Path& path, const Setting& setting)
{
    nvl::Path top = path;
    Setting tree = setting;
    while (top.size() > 1 && !Exists(ParentOf(top)))
    {
        tree = WrapInMap(top.back(), std::move(tree));
        top.pop_back();
    }
    return m_creator->CreateSetting(top, tree);
}

void Store::Create(const nvl::Path& path, const Setting& setting)
{
    int code = TryCreate(path, setting);
    // Found may mean a parent that somebody has made meanwhile, NotFound one that has gone.
    for (int tries = 1; tries < MaxTries; ++tries)
    {
        const bool isRace = code == codes::NotFound || (code == codes::Found && !Exists(path));
        if (!isRace)
        {
            break;
        }
        code = TryCreate(path, setting);
    }
    Check(code, "create", path);
}

template <class Set>
void Store::SetOrCreate(const nvl::Path& path, const Setting& setting, Set set)
{
    int code = set();
    for (int tries = 1; tries < MaxTries && code == codes::NotFound; ++tries)
    {
        code = TryCreate(path, setting);
        code = code == codes::Found ? set() : code;
    }
    Check(code, "set", path);
}

void Store::SetOrCreateValue(const nvl::Path& path, const Setting& setting)
{
    SetOrCreate(path, setting, [&] { return m_valueSetter->SetValue(path, ToValue(setting)); });
}

void Store::SetOrCreateSetting(const nvl::Path& path, const Setting& setting)
{
    SetOrCreate(path, setting, [&] { return m_setter->SetSetting(path, setting); });
}

settings_manager::SubscriptionId Store::Subscribe(
    const nvl::Path& path,
    const std::shared_ptr<settings_manager::ISettingsUpdateObserver>& observer)
{
    settings_manager::SubscriptionId sid = 0;
    Check(m_subscriber->Subscribe(path, observer, sid), "watch", path);
    return sid;
}

void Store::Unsubscribe(settings_manager::SubscriptionId sid) noexcept
{
    static_cast<void>(m_subscriber->Unsubscribe(sid));
}

}  // namespace tvoctl
