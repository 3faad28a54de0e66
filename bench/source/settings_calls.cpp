#include <unistd.h>

#include "notifications.h"
#include "server_line.h"
#include "settings_rows.h"
#include "settings_store.h"

namespace tvo::bench {
namespace {

using settings_manager::ISettingsManager;
using settings_manager::Setting;

using Value = nvl::TValue<Setting>;

Setting MapWithText()
{
    return {Setting::Map{{"text", {std::string("before")}}}};
}

/// Writes a string that differs from the one before.
class TextWriter
{
public:
    explicit TextWriter(Medium medium) : m_store(MapWithText(), medium) {}

    void Write()
    {
        m_isSecond = !m_isSecond;
        CheckCode(m_setter->SetValue(m_path, m_isSecond ? m_second : m_first), "writing");
    }

private:
    const SettingsStore m_store;
    const std::shared_ptr<settings_manager::ISettingsValueSetter> m_setter =
        m_store.Get(&ISettingsManager::GetSettingsValueSetter);
    const nvl::Path m_path = TextPath();
    const Value m_first{std::string("en-US")};
    const Value m_second{std::string("de-DE")};
    bool m_isSecond = false;
};

class WriteTexts
{
public:
    void operator()()
    {
        for (int i = 0; i < DurableWrites; ++i)
        {
            m_writer.Write();
        }
    }

private:
    TextWriter m_writer{Medium::Disk};
};

class ReadText
{
public:
    void operator()()
    {
        CheckCode(m_getter->GetSetting(m_path, m_setting), "reading");
    }

private:
    const SettingsStore m_store{MapWithText()};
    const std::shared_ptr<settings_manager::ISettingsGetter> m_getter =
        m_store.Get(&ISettingsManager::GetSettingsGetter);
    const nvl::Path m_path = TextPath();
    Setting m_setting;
};

class WriteTree
{
public:
    void operator()()
    {
        m_isSecond = !m_isSecond;
        CheckCode(m_setter->SetSetting(m_path, m_isSecond ? m_second : m_first), "writing");
    }

private:
    const Setting m_first = MakeTree(1);
    const Setting m_second = MakeTree(2);
    const SettingsStore m_store{m_first};
    const std::shared_ptr<settings_manager::ISettingsSetter> m_setter =
        m_store.Get(&ISettingsManager::GetSettingsSetter);
    const nvl::Path m_path = SettingsPath();
    bool m_isSecond = false;
};

class ReadTree
{
public:
    void operator()()
    {
        Setting setting;
        CheckCode(m_getter->GetSetting(m_path, setting), "reading");
    }

private:
    const SettingsStore m_store{MakeTree(1)};
    const std::shared_ptr<settings_manager::ISettingsGetter> m_getter =
        m_store.Get(&ISettingsManager::GetSettingsGetter);
    const nvl::Path m_path = SettingsPath();
};

class Observer final : public settings_manager::ISettingsUpdateObserver
{
public:
    int OnSettingsUpdate(const nvl::Path& /*path*/, unsigned char /*update*/) override
    {
        TellOwner(1);
        return 0;
    }
};

}  // namespace

std::unique_ptr<Contender> MakeDurableWrites()
{
    return std::make_unique<Repeated<WriteTexts>>();
}

std::unique_ptr<Contender> MakeReads()
{
    return std::make_unique<Repeated<ReadText>>();
}

std::unique_ptr<Contender> MakeNotifications(Medium medium)
{
    return std::make_unique<Notifications<TextWriter>>("settings_observer", medium);
}

std::unique_ptr<Contender> MakeTreeWrites()
{
    return std::make_unique<Repeated<WriteTree>>();
}

std::unique_ptr<Contender> MakeTreeReads()
{
    return std::make_unique<Repeated<ReadTree>>();
}

void ServeObserver(const std::vector<std::string>& /*arguments*/)
{
    const auto manager = ConnectToSettings();
    std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> subscriber;
    CheckCode(manager->GetSettingsUpdateSubscriber(subscriber), "getting an interface");
    settings_manager::SubscriptionId id = 0;
    CheckCode(subscriber->Subscribe(TextPath(), std::make_shared<Observer>(), id), "subscribing");
    ReportReady();
    for (;;)
    {
        ::pause();
    }
}

}  // namespace tvo::bench
