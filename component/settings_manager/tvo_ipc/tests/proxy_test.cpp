#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/result_codes.h>
#include <component/settings_manager/tvo_ipc/create_settings_manager.h>
#include <tvo/random.h>
#include <tvo/service_locator.h>

#include "fake_settings_service.h"
#include "settings_manager_proxy.h"
#include "zeroed_arena.h"

namespace settings_manager::ipc {
namespace {

using namespace plk::codes;
using platform::testing::Call;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using tvo::logger::LogLevel;
using enum LogLevel;
using Answer = FakeSettingsService::Answer;
using Calls = std::vector<std::string>;

constexpr SettingsManagerCmConfig Service{service_names::Persistent, 60000, 0};
constexpr int Mismatch = static_cast<int>(0x80000074U);

class SettingsProxy : public ::testing::Test
{
protected:
    SettingsProxy()
    {
        platform.Override<decltype(TvoRandomGenerate)>(
            Call::RandomGenerate,
            [](auto, void* bytes) { return std::memcpy(bytes, "\xAB\0\0", 4), 0; });
    }

    void Connect()
    {
        proxy = std::make_shared<SettingsManagerProxy>(Service);
        (void)service.TakeCalls();
    }

    /// A map of so many nodes in all.
    static Setting Tree(std::size_t nodes)
    {
        Setting::Map members;
        for (std::size_t i = 1; i < nodes; ++i)
        {
            members["n" + std::to_string(i)] = {std::string("text"), {i % 2 == 0}};
        }
        return {members};
    }

    /// Whether there is a line of this level that ends so.
    [[nodiscard]] bool HasLine(LogLevel level, const std::string& end) const
    {
        const auto isIt = [&](const auto& line)
        {
            return line.level == level && line.message.ends_with(end);
        };
        return std::ranges::count_if(log.Lines(), isIt) != 0;
    }

    const tvo::logger::testing::RecordingLogger log;
    platform::testing::PlatformDouble platform;
    FakeSettingsService service{platform};
    std::shared_ptr<SettingsManagerProxy> proxy;
    const nvl::Path path = nvl::Root / "a";
};

TEST_F(SettingsProxy, CarriesTreesInChunks)
{
    Connect();
    for (const auto& [nodes, calls] :
         {std::pair{64U, Calls{"Write", "Read"}},
          {129U, {"Write", "WriteNext", "WriteNext", "Read", "ReadNext", "ReadNext"}},
          {65U, {"Write", "WriteNext", "Read", "ReadNext"}}})
    {
        SCOPED_TRACE(nodes);
        Setting back;
        EXPECT_EQ(proxy->CreateSetting(path, Tree(nodes)), 0);
        EXPECT_EQ(service.mode, 1);
        EXPECT_EQ(service.count, nodes);
        EXPECT_EQ(service.items.size(), nodes);
        EXPECT_EQ(proxy->GetSetting(path, back), 0);
        EXPECT_EQ(service.mode, 0x16);
        EXPECT_EQ(service.path, "a/");
        EXPECT_EQ(back, Tree(nodes));
        EXPECT_EQ(service.TakeCalls(), calls);
    }
}

TEST_F(SettingsProxy, TellsModesAndAttributes)
{
    Connect();
    EXPECT_EQ(proxy->SetSetting(nvl::Root, {7L, {true}}), 0);
    EXPECT_EQ(service.mode, 6);
    EXPECT_EQ(service.path, "");
    EXPECT_EQ(service.items.at(0).attrib.at(8), 1);
    EXPECT_EQ(proxy->SetValue(path, {7L}), 0);
    EXPECT_EQ(service.mode, 2);
    EXPECT_EQ(service.items.at(0).attrib.at(8), 0);
    Attributes attributes;
    EXPECT_EQ(proxy->SetAttribute(path, {true}), 0);
    EXPECT_EQ(proxy->GetAttribute(path, attributes), 0);
    EXPECT_TRUE(attributes.isReadOnly);
}

TEST_F(SettingsProxy, ReportsWhatTheServiceAndTheTransportSay)
{
    Connect();
    service.items.emplace_back(path, Setting{7L});
    Setting setting;
    Attributes attributes;
    SubscriptionId sid = 0;
    using Run = std::function<int(const nvl::Path&)>;
    // clang-format off
    const std::tuple<std::string, std::string, LogLevel, Run> operations[] = {
        {"CreateSetting", "Write", Debug, [&](auto& p) { return proxy->CreateSetting(p, {7L}); }},
        {"SetSetting", "Write", Trace, [&](auto& p) { return proxy->SetSetting(p, {7L}); }},
        {"SetValue", "Write", Trace, [&](auto& p) { return proxy->SetValue(p, {7L}); }},
        {"GetSetting", "Read", Debug, [&](auto& p) { return proxy->GetSetting(p, setting); }},
        {"GetAttribute", "GetAttrib", Trace,
         [&](auto& p) { return proxy->GetAttribute(p, attributes); }},
        {"SetAttribute", "SetAttrib", Debug, [&](auto& p) { return proxy->SetAttribute(p, {}); }},
        {"DeleteSetting", "Delete", Debug, [&](auto& p) { return proxy->DeleteSetting(p); }},
        {"Subscribe", "Subscribe", Debug,
         [&](auto& p) { return proxy->Subscribe(p, nullptr, sid); }},
    };
    const std::tuple<Answer, int, LogLevel, std::string> failures[] = {
        {{.result = NotFound}, NotFound, Warning,
         " call error: wz = 0, zin = Not found = 0x8000004c: result = -2147483572"},
        {{.transport = XoBroken}, MediaError, Error,
         " call error: wz = -1879048187, zin = No error = 0x00: result = -2147483559"},
        {{.failed = true}, MediaError, Error,
         " call error: wz = 0, zin = No error = 0x00: result = -2147483559"},
        {{.edit = [](auto& response, auto) { response.size = 24; }}, MediaError, Error, ""},
    };
    // clang-format on
    for (const auto& [name, method, level, run] : operations)
    {
        SCOPED_TRACE(name);
        const std::string start = "[SM_P] 00AB " + name + "(a/)";
        EXPECT_GE(run(path), 0);
        EXPECT_TRUE(log.Contains(level, start));
        EXPECT_TRUE(name == method || log.Contains(level, start + ": : result = 0"));
        for (const auto& [answer, code, raised, text] : failures)
        {
            service.Next(method, answer);
            EXPECT_EQ(run(path), code);
            EXPECT_TRUE(text.empty() || log.Contains(raised, start + ": : " + method + text));
        }
        EXPECT_EQ(run(nvl::Root / std::string(512, 'x')), OutOfSpace);
        EXPECT_TRUE(HasLine(Error, method + " request arena fail: result = -2147483550"));
    }
}

TEST_F(SettingsProxy, EndsATransferThatCannotGoOn)
{
    Connect();
    const auto put = [](std::size_t offset, auto value)
    {
        return [=](wz_message& response, auto)
        {
            std::memcpy(reinterpret_cast<char*>(&response) + offset, &value, sizeof(value));
        };
    };
    constexpr tvo::ipc::arena::Reference Bad{1, 24};
    Setting bad = Tree(65);
    std::get<Setting::Map>(bad.value)["z"] = {std::string(8176, 'z')};
    const auto write = std::bind_front(&SettingsManagerProxy::SetSetting, proxy, path, Tree(65));
    const auto writeBad = std::bind_front(&SettingsManagerProxy::SetSetting, proxy, path, bad);
    const auto read = [&]
    {
        Setting setting{true};
        const int result = proxy->GetSetting(path, setting);
        EXPECT_EQ(setting, Setting{true});
        return result;
    };
    const auto grow = [&](auto...)
    {
        service.items.resize(300, service.items.back());
    };
    const std::string head = "#             ABC, ncount = 65";
    const std::string refused = " call error: wz = 0, zin = Not ready = 0x80000063";
    const std::string lost = " call error: wz = -1879048173, zin = No error = 0x00";
    const std::string wrongSize = " -> wrong RawSetting size: fact/plan = ";
    using Run = std::function<int()>;
    // clang-format off
    const std::tuple<std::string, Answer, Run, int, std::string, int> rows[] = {
        {"WriteNext", {.result = NotReady}, write, NotReady, head + ": WriteNext" + refused, 1},
        {"", {}, writeBad, OutOfSpace, ", ncount = 66: WriteNext request arena fail", 1},
        {"ReadNext", {.transport = XoObjectGone}, read, MediaError, head + ": ReadNext" + lost, 1},
        {"Read", {.edit = put(32, Bad)}, read, OutOfSpace, ": Read response arena fail", 0},
        {"ReadNext", {.edit = put(24, Bad)}, read, OutOfSpace,
         head + ": ReadNext response arena fail", 1},
        {"Read", {.edit = put(24, 63UL)}, read, Mismatch, wrongSize + "64/63 ", 0},
        {"Read", {.edit = grow}, read, Mismatch, head + wrongSize + "128/65 ", 1},
    };
    // clang-format on
    for (const auto& [method, answer, run, code, line, cancelled] : rows)
    {
        SCOPED_TRACE(line);
        EXPECT_EQ(write(), 0);
        (void)service.TakeCalls();
        service.Next(method, answer);
        EXPECT_EQ(run(), code);
        EXPECT_TRUE(HasLine(code == NotReady ? Warning : Error,
                            line + ": result = " + std::to_string(code)));
        EXPECT_EQ(service.Count("Cancel"), cancelled);
    }
    EXPECT_TRUE(HasLine(Warning, ": Cancel(#             ABC): wz = 0, zin = No error = 0x00"));
}

TEST_F(SettingsProxy, SendsNothingOfWhatDoesNotFit)
{
    Connect();
    EXPECT_EQ(proxy->SetSetting(path, {std::string(8175, 'x')}), 0);
    (void)service.TakeCalls();
    EXPECT_EQ(proxy->SetSetting(path, {std::string(8176, 'x')}), OutOfSpace);
    EXPECT_TRUE(HasLine(Warning, "size = 2/8193/16, max = 512/8192/16"));
    EXPECT_EQ(proxy->SetSetting(nvl::Root / "a b", {7L}), InvalidArgument);
    EXPECT_TRUE(HasLine(Warning,
                        "(<path to str fail: state = 7>): Serialize = [-2147483578, [RawSetting] "
                        "Path to str fail: state = 7]: result = -2147483578"));
    EXPECT_EQ(service.TakeCalls(), Calls());
    EXPECT_EQ(proxy->DeleteSetting(nvl::Root / "a b"), 0);
    EXPECT_EQ(service.path, "<path to str fail: state = 7>");
}

TEST_F(SettingsProxy, WaitsForAServiceThatIsNotThereYet)
{
    platform.Fail(Call::Sleep);
    platform.Return(Call::CmConnect, {.code = XoObjectGone, .times = 3000});
    std::shared_ptr<ISettingsManager> manager;
    EXPECT_EQ(CreateSettingsManager(Service, manager), 0);
    EXPECT_EQ(platform.Count(Call::CmConnect), 3003U);
    EXPECT_EQ(platform.Count(Call::Sleep), 3000U);
    EXPECT_EQ(platform.Journal(Call::Sleep).at(0).arguments, "100");
    EXPECT_EQ(service.path, "//cm:");
    manager.reset();
    EXPECT_EQ(platform.Count(Call::HandleClose), 3U);
    EXPECT_TRUE(HasLine(Info, "UnregCallback(@             C1D): use count = 0, sid count = 0"));
}

TEST_F(SettingsProxy, FailsToBeMadeInManyWays)
{
    platform.Fail(Call::Sleep);
    const auto expectFailure = [&](const std::string& text, unsigned closed)
    {
        const unsigned before = platform.Count(Call::HandleClose);
        std::shared_ptr<ISettingsManager> manager;
        EXPECT_EQ(CreateSettingsManager({service_names::Persistent, ~0U, 0}, manager),
                  UnspecifiedError);
        EXPECT_EQ(manager, nullptr);
        EXPECT_EQ(platform.Count(Call::HandleClose) - before, closed) << text;
        EXPECT_EQ(log.Lines().back().level, Critical);
        EXPECT_THAT(
            log.Lines().back().message,
            AllOf(StartsWith("Could not create settings manager proxy: "), HasSubstr(text)));
    };
    platform.Return(Call::RandomGenerate, {});
    expectFailure("TvoRandomGenerate() fail", 0);
    platform.Return(Call::CmConnect, {.times = 3001});
    expectFailure("XoCmConnect() fail: vx.settings_manager.PSmgr.WzISM:65535 (-1879048173)", 0);
    service.Next("RegCallback", {.result = Locked});
    expectFailure("CheckResultFailedException - 0x8000004f (Locked). At ", 3);
    service.Next("RegCallback", {.transport = XoBroken});
    expectFailure("CheckResultFailedException - 0x80000059 (Media error). At ", 3);
}

TEST_F(SettingsProxy, ConnectsByStaticNames)
{
    constexpr SettingsManagerConfig Static{"cbk", "sm", "s.Ism", "s.IsmReg", "s.IsmCbk"};
    platform.Override<decltype(ServiceLocatorConnect)>(
        Call::LocatorConnect,
        [](const std::string& name)
        { return name == "sm" ? 0xC1U : FakeSettingsService::Callback; });
    platform.Override<decltype(ServiceLocatorGetRiid)>(
        Call::LocatorGetRiid,
        [](auto, const std::string& endpoint) -> std::uint16_t {
            return endpoint == "s.Ism" ? 1 : endpoint == "s.IsmReg" ? 2 : 3;
        });
    std::shared_ptr<ISettingsManager> manager;
    EXPECT_EQ(CreateSettingsManager(Static, manager), 0);
    EXPECT_EQ(service.path, "cbk");
    EXPECT_EQ(platform.Journal(Call::LocatorGetRiid).at(2).arguments, "195, \"s.IsmCbk\"");
    platform.Return(Call::LocatorGetRiid, {});
    EXPECT_EQ(CreateSettingsManager(Static, manager), UnspecifiedError);
    EXPECT_THAT(log.Lines().back().message, HasSubstr("ServiceLocatorGetRiid() fail: sm : s.Ism."));
    EXPECT_EQ(platform.Count(Call::HandleClose), 1U);
    EXPECT_EQ(platform.Count(Call::Sleep), 0U);
}

TEST_F(SettingsProxy, FindsItsArenaZeroWhateverWasThereBefore)
{
    Connect();
    const auto spoil = [&](auto&, wz_arena* out)
    {
        EXPECT_EQ(out->end - out->start, 559616);
        EXPECT_TRUE(std::all_of(out->start, out->end, std::logical_not()));
        *(out->end - 1) = 1;
    };
    Setting setting;
    for (int times = 0; times < 2; ++times)
    {
        service.Next("Read", {.transport = XoBroken, .edit = spoil});
        EXPECT_EQ(proxy->GetSetting(path, setting), MediaError);
    }
    EXPECT_EQ(proxy->SetSetting(path, Tree(64)), 0);
    ZeroedArena arena(limits::WriteArena);
    EXPECT_TRUE(std::all_of(arena.Get()->start, arena.Get()->end, std::logical_not()));
}

}  // namespace
}  // namespace settings_manager::ipc
