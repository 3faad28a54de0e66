#include <atomic>
#include <chrono>
#include <future>
#include <semaphore>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/result_codes.h>

#include "fake_settings_service.h"
#include "settings_manager_proxy.h"

namespace settings_manager::ipc {
namespace {

using platform::testing::Call;
using enum tvo::logger::LogLevel;

constexpr SettingsManagerCmConfig Service{service_names::Persistent, 60000, 0};

using Signal = std::counting_semaphore<>;

/// Gives up after five seconds.
[[nodiscard]] bool Happens(Signal& signal)
{
    return signal.try_acquire_for(std::chrono::seconds(5));
}

/// Gives what must not happen a moment to happen.
template <class Result>
[[nodiscard]] bool IsPending(const std::future<Result>& result)
{
    return result.wait_for(std::chrono::milliseconds(20)) == std::future_status::timeout;
}

/// Notes its updates. The first run may have to wait until it is told to end.
struct Observer final : ISettingsUpdateObserver
{
    explicit Observer(bool isHeld = false) : mayEnd(isHeld ? 0 : 1) {}

    int OnSettingsUpdate(const nvl::Path& path, unsigned char update) override
    {
        updates.emplace_back(path, update);
        ran.release();
        EXPECT_TRUE(hasRun || Happens(mayEnd));
        hasRun = true;
        return throws ? throw std::runtime_error("oops") : 5;
    }

    Signal ran{0};
    Signal mayEnd;
    bool throws = false;
    std::atomic<bool> hasRun = false;
    std::vector<std::pair<nvl::Path, int>> updates;
};

using SharedObserver = std::shared_ptr<Observer>;

class Subscriptions : public ::testing::Test
{
protected:
    Subscriptions()
    {
        service.sids = {{"a/", 11}, {"b/", 12}, {"c/", 13}, {"last/", 90}};
        proxy = std::make_shared<SettingsManagerProxy>(Service);
    }

    int Subscribe(const std::string& name, const SharedObserver& observer)
    {
        SubscriptionId sid = 0;
        return proxy->Subscribe(nvl::Root / name, observer, sid);
    }

    /// A subscription whose call the service keeps back.
    std::future<int> SubscribeLater(const std::string& name, const SharedObserver& observer)
    {
        const long calls = service.Count("Subscribe");
        service.Hold("Subscribe");
        auto result =
            std::async(std::launch::async, [=, this] { return Subscribe(name, observer); });
        EXPECT_TRUE(service.WaitForCall("Subscribe", calls + 1));
        return result;
    }

    /// Waits until all updates have been dealt with, with one that was sent behind them.
    void WaitForLast()
    {
        const auto last = std::make_shared<Observer>();
        const SubscriptionId sid = ++service.sids["last/"];
        ASSERT_EQ(Subscribe("last", last), 0);
        const long confirmed = service.Count("Done");
        service.Push(sid, "last/");
        EXPECT_TRUE(Happens(last->ran));
        EXPECT_TRUE(service.WaitForCall("Done", confirmed + 1));
    }

    [[nodiscard]] long CountLines(const std::string& part) const
    {
        const auto lines = log.Lines();
        return std::ranges::count_if(
            lines, [&](const auto& line) { return line.message.find(part) != std::string::npos; });
    }

    /// Waits for the callback thread to say so, as often as that and no more.
    [[nodiscard]] bool WaitForLines(const std::string& part, long count = 1) const
    {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (CountLines(part) < count && std::chrono::steady_clock::now() < limit)
        {
            std::this_thread::yield();
        }
        return CountLines(part) == count;
    }

    const tvo::logger::testing::RecordingLogger log;
    platform::testing::PlatformDouble platform;
    FakeSettingsService service{platform};
    std::shared_ptr<SettingsManagerProxy> proxy;
    const SharedObserver seen = std::make_shared<Observer>();
};

const std::string IsWaiting = "new sid - waiting for Subscribe()...";
const std::string OnThread = "[SM_P] OnSettingsUpdate(@             C1D): ";

TEST_F(Subscriptions, DeliverUpdatesUntilTheyEnd)
{
    ASSERT_EQ(Subscribe("a", seen), 0);
    service.Push(11, "a/3/", 9);
    ASSERT_TRUE(service.WaitForCall("Done"));
    EXPECT_EQ(proxy->Unsubscribe(11), 0);
    EXPECT_EQ(seen.use_count(), 1);
    ASSERT_EQ(seen->updates.size(), 1U);
    EXPECT_EQ(seen->updates[0], std::pair(nvl::Root / "a" / 3, 9));
    const std::string line = OnThread + "$11, path = a/3/, upd = 9: ";
    EXPECT_TRUE(log.Contains(Trace, line + "InvokeObserver =>"));
    EXPECT_TRUE(log.Contains(Trace, line + "<= 5"));
    EXPECT_EQ(CountLines("Subscribe(a/): $11: result = 0"), 1);
    EXPECT_EQ(CountLines("Unsubscribe($11): : result = 0"), 1);
    EXPECT_EQ(proxy->Unsubscribe(11), plk::codes::NotFound);
    EXPECT_EQ(CountLines("Unsubscribe($11):  -> inexistent sid: result = -2147483572"), 1);
    EXPECT_EQ(service.Count("Unsubscribe"), 1);
}

TEST_F(Subscriptions, UpdateThatOvertakesItsSubscribeWaitsForWhatBecomesOfIt)
{
    const std::string notFound = OnThread + "$11, path = a/, upd = 2 -> sid not found";
    service.Next("Subscribe", {.result = plk::codes::AccessDenied});
    for (const int code : {plk::codes::AccessDenied, plk::codes::Ok})
    {
        auto result = SubscribeLater("a", seen);
        service.Push(11);
        EXPECT_TRUE(WaitForLines(IsWaiting, code == 0 ? 2 : 1));
        service.Release("Subscribe");
        EXPECT_EQ(result.get(), code);
        EXPECT_TRUE(WaitForLines(notFound)) << "nothing else has to happen for it";
        WaitForLast();
        EXPECT_EQ(seen->updates.size(), code == 0 ? 1U : 0U);
        EXPECT_EQ(CountLines(notFound), 1);
    }
    EXPECT_EQ(service.Count("Done"), 3);
}

TEST_F(Subscriptions, EverySuccessButNotEveryFailureLetsAnUpdateLookAgain)
{
    service.Next("Subscribe", {});
    service.Next("Subscribe", {.transport = XoBroken});
    auto succeeds = SubscribeLater("a", std::make_shared<Observer>());
    auto fails = SubscribeLater("b", std::make_shared<Observer>());
    auto awaited = SubscribeLater("c", seen);
    service.Push(13);
    EXPECT_TRUE(WaitForLines(IsWaiting));
    service.Release("Subscribe", 1);
    EXPECT_EQ(succeeds.get(), 0);
    EXPECT_TRUE(WaitForLines(IsWaiting, 2));
    service.Release("Subscribe", 1);
    EXPECT_EQ(fails.get(), plk::codes::MediaError);
    service.Release("Subscribe", 1);
    EXPECT_EQ(awaited.get(), 0);
    EXPECT_TRUE(Happens(seen->ran));
    EXPECT_EQ(CountLines(IsWaiting), 2);
}

TEST_F(Subscriptions, UnsubscribeWaitsForARunningObserver)
{
    const auto running = std::make_shared<Observer>(true);
    ASSERT_EQ(Subscribe("a", running), 0);
    service.Push(11);
    ASSERT_TRUE(Happens(running->ran));
    auto unsubscribed = std::async(std::launch::async,
                                   [&]
                                   {
                                       EXPECT_EQ(proxy->Unsubscribe(11), 0);
                                       EXPECT_EQ(running.use_count(), 1);
                                       return running->hasRun.load();
                                   });
    EXPECT_TRUE(WaitForLines("synchronizing with OnSettingsUpdate()..."));
    EXPECT_TRUE(IsPending(unsubscribed));
    running->mayEnd.release();
    EXPECT_TRUE(unsubscribed.get());
    EXPECT_EQ(CountLines("synchronizing with Unsubscribe()..."), 1);
    EXPECT_EQ(service.Count("Done"), 1);
}

TEST_F(Subscriptions, UpdatesOfALeavingSubscriptionAreDroppedInSilence)
{
    ASSERT_EQ(Subscribe("a", seen), 0);
    service.Hold("Unsubscribe");
    auto unsubscribed = std::async(std::launch::async, [&] { return proxy->Unsubscribe(11); });
    ASSERT_TRUE(service.WaitForCall("Unsubscribe"));
    service.Push(11);
    WaitForLast();
    service.Release("Unsubscribe");
    EXPECT_EQ(unsubscribed.get(), 0);
    EXPECT_TRUE(seen->updates.empty());
    EXPECT_EQ(service.Count("Done"), 1);
    EXPECT_EQ(CountLines("sid not found"), 0);
    service.Push(11);
    EXPECT_TRUE(WaitForLines("sid not found")) << "it has left";
}

TEST_F(Subscriptions, TheLastProxyWaitsForADelivery)
{
    const auto running = std::make_shared<Observer>(true);
    ASSERT_EQ(Subscribe("a", running), 0);
    service.Push(11);
    ASSERT_TRUE(Happens(running->ran));
    auto ended = std::async(std::launch::async,
                            [&]
                            {
                                proxy.reset();
                                return running->hasRun.load();
                            });
    ASSERT_TRUE(service.WaitForCall("UnregCallback"));
    EXPECT_TRUE(IsPending(ended));
    EXPECT_EQ(platform.Count(Call::HandleClose), 0U);
    running->mayEnd.release();
    EXPECT_TRUE(ended.get());
    EXPECT_EQ(service.Count("Done"), 1) << "the round comes to its end";
    EXPECT_EQ(CountLines(OnThread + "exit"), 1);
    EXPECT_EQ(CountLines("UnregCallback(@             C1D): use count = 0, sid count = 1"), 1);
}

TEST_F(Subscriptions, OddUpdatesAreLoggedAndNotConfirmed)
{
    const auto bend = [](wz_message& response, auto)
    {
        reinterpret_cast<vx_settings_manager_WzISMCbk_Wait_res&>(response).path = {511, 2};
    };
    service.Push(0);
    service.Push(11, "a b/");
    service.Push(11);
    service.Next("Wait", {.edit = bend});
    WaitForLast();
    EXPECT_TRUE(log.Contains(Warning, OnThread + "$0, path = a/, upd = 2 -> null sid"));
    EXPECT_TRUE(log.Contains(Warning, OnThread + "$11, path = , upd = 2 -> path nvl::IdState = 7"));
    EXPECT_TRUE(log.Contains(Error, OnThread + "$11, path = a/, upd = 2 -> sid not found"));
    EXPECT_EQ(CountLines(", path = , upd = 0: Wait response arena fail"), 1);
    EXPECT_EQ(service.Count("Done"), 1) << "that of the last one";
}

TEST_F(Subscriptions, FailuresOfTheServiceDoNotEndTheThread)
{
    platform.Return(Call::Sleep, {.times = 2});
    seen->throws = true;
    ASSERT_EQ(Subscribe("a", seen), 0);
    service.Next("Done", {.result = plk::codes::NotFound});
    service.Push(11);
    ASSERT_TRUE(service.WaitForCall("Done"));
    service.Next("Wait", {.transport = WzTimedOut});
    service.Next("Wait", {.transport = XoBroken});
    service.Next("Wait", {.result = plk::codes::NotReady});
    WaitForLast();
    for (const auto& [level, text] :
         {std::pair{Error, "$11, path = a/, upd = 2: <= [-2147483573, nvl: std::exception: oops]"},
          {Warning,
           "$11, path = a/, upd = 2: Done call error: wz = 0, zin = Not found = 0x8000004c"},
          {Error, ": Wait call error: wz = -1879048187, zin = No error = 0x00"},
          {Warning, ": Wait call error: wz = 0, zin = Not ready = 0x80000063"}})
    {
        EXPECT_TRUE(log.Contains(level, OnThread + text)) << text;
    }
    EXPECT_EQ(CountLines("call error"), 3) << "a wait that has run into its limit is no news";
    EXPECT_EQ(platform.Count(Call::Sleep), 2U);
    EXPECT_EQ(platform.Journal(Call::Sleep).at(0).arguments, "1000");
    service.Next("Unsubscribe", {.transport = XoObjectGone});
    EXPECT_EQ(proxy->Unsubscribe(11), plk::codes::MediaError);
    EXPECT_EQ(proxy->Unsubscribe(11), plk::codes::NotFound) << "it has ended all the same";
}

TEST_F(Subscriptions, ProxiesOfOneServiceShareAThread)
{
    auto other = std::make_shared<SettingsManagerProxy>(Service);
    EXPECT_EQ(service.Count("RegCallback"), 1);
    EXPECT_EQ(CountLines("@             C1D, use count = 2"), 1);
    other.reset();
    EXPECT_EQ(service.Count("UnregCallback"), 0);
    WaitForLast();
    other = std::make_shared<SettingsManagerProxy>(
        SettingsManagerCmConfig{service_names::NonPersistent, 0, 0});
    EXPECT_EQ(service.Count("RegCallback"), 2);
    service.Next("UnregCallback", {.result = plk::codes::NotFound});
    proxy.reset();
    EXPECT_EQ(CountLines(OnThread + "exit"), 1) << "whatever the service says";
    EXPECT_EQ(CountLines("UnregCallback call error: wz = 0, zin = Not found = 0x8000004cuse"), 1);
}

}  // namespace
}  // namespace settings_manager::ipc
