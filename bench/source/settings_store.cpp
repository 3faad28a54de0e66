#include "settings_store.h"

#include <stdexcept>

#include <component/logger/tvo_logger.h>
#include <component/settings_manager/tvo_ipc/create_settings_manager.h>
#include <component/settings_manager/tvo_ipc/service_names.h>

#include "settings_tree.h"

namespace tvo::bench {
namespace {

using settings_manager::Setting;

constexpr std::uint32_t ConnectTimeoutMs = 10000;

Setting MakeGroup(std::size_t group, int round)
{
    Setting::Map members;
    for (std::size_t leaf = 0; leaf < GroupLeaves; ++leaf)
    {
        Setting& member = members[LeafName(leaf)];
        if (IsText(leaf))
        {
            member.value = TextOf(group, leaf, round);
        }
        else
        {
            member.value = NumberOf(group, leaf, round);
        }
    }
    return {std::move(members)};
}

}  // namespace

void CheckCode(int code, const char* what)
{
    if (code < 0)
    {
        throw std::runtime_error(what + (" failed with " + std::to_string(code)));
    }
}

std::shared_ptr<settings_manager::ISettingsManager> ConnectToSettings()
{
    tvo::logger::TVOLogger::Setup("BENCH", tvo::logger::LogLevel::Warning, nullptr);
    std::shared_ptr<settings_manager::ISettingsManager> manager;
    CheckCode(settings_manager::ipc::CreateSettingsManager(
                  {settings_manager::service_names::Persistent, ConnectTimeoutMs, 0}, manager),
              "connecting to the settings service");
    return manager;
}

nvl::Path SettingsPath()
{
    return nvl::Root / "bench";
}

nvl::Path TextPath()
{
    return SettingsPath() / "text";
}

Setting MakeTree(int round)
{
    Setting::Map groups;
    for (std::size_t group = 0; group < TreeGroups; ++group)
    {
        groups[GroupName(group)] = MakeGroup(group, round);
    }
    return {std::move(groups)};
}

SettingsStore::SettingsStore(const Setting& setting, Medium medium)
    : m_folder(medium),
      m_service(
          {TVO_BENCH_SETTINGS_MANAGER, {"--database", m_folder.Path() + "/settings.db"}, {}, {}})
{
    if (!m_service.WaitForText("is ready"))
    {
        throw std::runtime_error("the settings service did not start: " + m_service.Errors());
    }
    m_manager = ConnectToSettings();
    const auto creator = Get(&settings_manager::ISettingsManager::GetSettingsCreator);
    CheckCode(creator->CreateSetting(SettingsPath(), setting), "creating a setting");
}

}  // namespace tvo::bench
