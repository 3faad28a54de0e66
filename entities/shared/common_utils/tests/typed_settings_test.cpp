#include <future>
#include <latch>
#include <optional>
#include <thread>

#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/process_exception.h>
#include <shared/common_utils/settings/read_setting_value.h>
#include <shared/common_utils/settings/sm_setting_accessor.h>
#include <shared/common_utils/settings/utils/functional_settings_observer.h>
#include <shared/common_utils/testing/fake_settings_manager.h>

namespace vdi::common_utils::settings {
namespace {

using settings_manager::Setting;
using settings_manager::testing::FakeSettingsManager;
using tvo::logger::LogLevel;

namespace codes = plk::codes;
namespace update = settings_manager::update;

using Accessor = SmSettingAccessor<std::string>;
using Reader = SmSettingReader<std::string>;
using Writer = SmSettingValueWriter<std::string>;

/// Code and text of what a function throws.
std::pair<int, std::string> Failure(const std::function<void()>& function)
try
{
    function();
    return {};
}
catch (...)
{
    return plk::utils::ProcessException();
}

struct TypedSettings : ::testing::Test
{
    int Report(const nvl::Path& changed, unsigned char kinds)
    {
        return manager->observers.rbegin()->second->OnSettingsUpdate(changed, kinds);
    }

    tvo::logger::testing::RecordingLogger log;
    std::shared_ptr<FakeSettingsManager> manager = std::make_shared<FakeSettingsManager>();
    const nvl::Path path{"profiles", "language"};
    std::optional<Accessor> accessor{std::in_place, manager, path, "default"};
    int calls = 0;
};

TEST_F(TypedSettings, SayWhatTheyCannotBeMadeWithout)
{
    const auto fails = [](const char* text, const std::function<void()>& make)
    {
        EXPECT_NE(Failure(make).second.find(text), std::string::npos) << text;
    };
    fails("Setting path is empty!", [] { Reader(nullptr, {}, ""); });
    fails("Setting path is empty!", [] { Writer(nullptr, {}); });
    fails(" SettingsManager is not initialized!", [&] { Accessor(nullptr, path, ""); });
    fails(" SettingsManager is not initialized!", [&] { Writer(nullptr, path); });
    manager->partsLeft = 1;
    fails("SettingsUpdateSubscriber is null", [&] { Reader(manager, path, ""); });
    fails("SettingsValueSetter is null", [&] { Writer(manager, path); });
    fails("SettingsGetter is null", [&] { Reader(manager, path, ""); });
    fails("SettingsGetter is null",
          [&] { (void)ReadSettingValue<std::string>(manager, path, ""); });
    fails("Callback is not initialized!", [] { utils::FunctionalSettingsObserver(nullptr); });
}

TEST_F(TypedSettings, ReadTheDefaultWithAWarningForAllButTheirKindOfValue)
{
    const auto reads = [&](const std::string& value, const std::string& warning = "")
    {
        const tvo::logger::testing::RecordingLogger lines;
        EXPECT_EQ(accessor->ReadValue(), value);
        EXPECT_EQ(ReadSettingValue<std::string>(manager, path, "default"), value);
        EXPECT_EQ(lines.Lines().size(), warning.empty() ? 0U : 2U);
        EXPECT_NE(lines.Contains(LogLevel::Warning, warning), warning.empty());
    };
    reads(
        "default",
        "SMgr GetSettingValue: can not get 'profiles/language/', result = Not found = 0x8000004c");
    manager->settings[path] = {7};
    reads("default", "SMgr GetSettingValue: 'profiles/language/' wrong type, index = 6");
    manager->settings[path] = {""};
    reads("");
}

TEST_F(TypedSettings, WriteAndReportFailuresInTheirWays)
{
    manager->settings[path] = {.value = 7, .attributes = {.isReadOnly = true}};
    EXPECT_EQ(accessor->WriteValue("pt-BR"), codes::Ok);
    EXPECT_EQ(accessor->ReadValue(), "pt-BR");
    EXPECT_TRUE(accessor->IsReadOnly());
    manager->result = codes::MediaError;
    EXPECT_EQ(accessor->WriteValue("ru-RU"), codes::MediaError);
    EXPECT_EQ(log.Lines().back().message,
              "Failed to set setting value to path profiles/language/, result = Media error = "
              "0x80000059");
    EXPECT_EQ(Failure([&] { (void)accessor->IsReadOnly(); }).first, codes::MediaError);
}

TEST_F(TypedSettings, CallForChangesOfTheSettingAndOfWhatIsBelow)
{
    accessor->RegisterCallback([&] { ++calls; });
    EXPECT_EQ(Report(path, update::ValueChanged), codes::Ok);
    EXPECT_EQ(Report(path / "below", update::AttributesChanged | update::Created), codes::Ok);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(Report(path, update::Created | update::Deleted), codes::Ok);
    EXPECT_EQ(Report({"profiles"}, update::ValueChanged), codes::UnspecifiedError);
    EXPECT_EQ(Report({"profiles", "keyboard"}, update::ValueChanged), codes::UnspecifiedError);
    EXPECT_TRUE(log.Contains(LogLevel::Warning, "Invalid setting path profiles/ in update event"));
    EXPECT_EQ(calls, 2);
    accessor->RegisterCallback([] { throw std::runtime_error("callback"); });
    EXPECT_EQ(Report(path, update::ValueChanged), codes::UnspecifiedError);
}

TEST_F(TypedSettings, KeepOneSubscriptionAndTheLatestCallback)
{
    manager->onSubscribe = [&](auto& observer)
    {
        observer.OnSettingsUpdate(path, update::ValueChanged);
    };
    accessor->RegisterCallback([&] { ++calls; });
    EXPECT_EQ(calls, 1) << "a change that overtakes the answer to the subscribing";
    accessor->RegisterCallback([&] { calls = 100; });
    EXPECT_TRUE(log.Contains(LogLevel::Warning, "Callback already registered"));

    manager->result = codes::MediaError;
    EXPECT_EQ(Failure([&] { accessor->RegisterCallback([] {}); }).first, codes::MediaError);
    EXPECT_EQ(manager->observers.size(), 1U);
    Report(path, update::ValueChanged);
    EXPECT_EQ(calls, 100) << "the former callback stays";

    const auto observer = manager->observers.begin()->second;
    accessor->UnregisterCallback();
    EXPECT_EQ(log.Lines().back().function, "~AutoSettingsUpdateSubscriber");
    EXPECT_EQ(observer->OnSettingsUpdate(path, update::ValueChanged), codes::Ok);
    EXPECT_TRUE(log.Contains(LogLevel::Debug, "Callback not set"));
    EXPECT_FALSE(log.Contains(LogLevel::Warning, "Callback already unregistered"));
    EXPECT_THROW(accessor->RegisterCallback([] {}), zin::CheckResultFailedException);
    accessor->UnregisterCallback();
    EXPECT_TRUE(log.Contains(LogLevel::Warning, "Callback already unregistered"));
}

TEST_F(TypedSettings, RaceOfAnEndingSubscriptionWithAnObserverBeforeItsLock)
{
    const std::function<void()> ways[] = {[&] { accessor->UnregisterCallback(); },
                                          [&] { accessor->RegisterCallback([] {}); },
                                          [&]
                                          {
                                              accessor.reset();
                                          }};
    for (const auto& end : ways)
    {
        accessor.emplace(manager, path, "");
        accessor->RegisterCallback([&] { ++calls; });
        std::latch ending{1};
        std::promise<void> ended;
        std::thread update(
            [&, observer = manager->observers.begin()->second]
            {
                ending.wait();
                observer->OnSettingsUpdate(path, update::ValueChanged);
                ended.set_value();
            });
        // As the service's client does, this waits for the observer; a deadlock becomes a failure.
        manager->onUnsubscribe = [&, first = true]() mutable
        {
            if (std::exchange(first, false))
            {
                ending.count_down();
                EXPECT_EQ(ended.get_future().wait_for(std::chrono::seconds(5)),
                          std::future_status::ready);
            }
        };
        end();
        update.join();
        manager->onUnsubscribe = [] {
        };
    }
    EXPECT_LE(calls, 2) << "a destroyed reader calls nobody";
}

}  // namespace
}  // namespace vdi::common_utils::settings
