#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <platform/testing/platform_double.h>
#include <shared/common/tvo/ipc/connection_manager.h>
#include <tvo/service_locator.h>
#include <xo/connection.h>

namespace tvo::ipc {

/// Adds a waiter as a user of the groups would.
struct ConnectionManagerPeer
{
    static void AddWaiter(ConnectionManager& manager, std::weak_ptr<plk::Semaphore> waiter)
    {
        manager.m_groups.begin()->second.waiters.push_back(std::move(waiter));
    }
};

}  // namespace tvo::ipc

namespace {

using platform::testing::Call;
using testing::Contains;
using testing::ElementsAre;
using tvo::ipc::ConnectionManager;
using tvo::ipc::ConnectionManagerPeer;

class ConnectionManagerTest : public testing::Test
{
protected:
    ConnectionManagerTest()
    {
        config.plan = {{"grouped", {7, 3}}, {"single", {8, 0}}};
        config.onLog = [this](std::string_view text, bool error)
        {
            lines.push_back((error ? "error: " : "") + std::string(text));
        };
        config.listenTimeout = 20;
        config.autoStart = true;
    }

    /// Runs a manager until the request for the service has its verdict, then stops it.
    std::optional<int> VerdictFor(const char* service, std::vector<unsigned int>* handles = nullptr)
    {
        ConnectionManager manager(config);
        const auto verdict = platform.RequestConnection("client", service).WaitForVerdict();
        manager.Stop(handles);
        return verdict;
    }

    platform::testing::PlatformDouble platform;
    std::uint64_t registration = 0;
    unsigned int endpoint = ServiceLocatorRegister("endpoint", nullptr, 0, &registration);
    ConnectionManager::Config config;
    std::vector<std::string> lines;  ///< of a manager's thread; to be read when it has stopped
};

TEST_F(ConnectionManagerTest, RefusesAnInvalidInterfaceNumber)
{
    config.plan["broken"] = {65535, 0};
    EXPECT_THAT([&] { ConnectionManager{config}; },
                testing::ThrowsMessage<std::runtime_error>(
                    "tvo::ipc::ConnectionManager: INVALID_RIID in user plan"));
    EXPECT_EQ(platform.Count(Call::CmListen), 0U);
}

TEST_F(ConnectionManagerTest, StartsAndStopsByItsState)
{
    config.autoStart = false;
    config.ownHandles = true;
    config.groupHandles = {{3, endpoint}};
    ConnectionManager manager(config);
    std::vector<unsigned int> handles = {5};
    EXPECT_FALSE(manager.Stop(&handles));
    EXPECT_THAT(handles, ElementsAre(5));
    EXPECT_TRUE(manager.Start());
    EXPECT_FALSE(manager.Start());
    EXPECT_TRUE(manager.Stop(&handles));
    EXPECT_THAT(handles, ElementsAre(5, endpoint));
    EXPECT_EQ(platform.Count(Call::HandleClose), 0U);
    EXPECT_THAT(lines, ElementsAre("worker start", "worker stop"));
    EXPECT_TRUE(manager.Start());
}

TEST_F(ConnectionManagerTest, AcceptsOnTheGroupsEndpointAndLeavesItOpen)
{
    config.groupHandles = {{3, endpoint}};
    std::vector<std::tuple<std::string, std::string, unsigned, unsigned, unsigned, bool>> told;
    config.onAccepted = [&](const char* client, const char* service, auto... rest)
    {
        told.emplace_back(client, service, rest...);
        throw 1;
    };
    EXPECT_EQ(VerdictFor("grouped"), 0);
    EXPECT_THAT(told, ElementsAre(std::tuple("client", "grouped", 7U, 3U, endpoint, true)));
    EXPECT_EQ(platform.Count(Call::HandleClose), 0U);
}

TEST_F(ConnectionManagerTest, MakesTheEndpointOfAGroupOnceAndWakesItsWaiters)
{
    config.autoStart = false;
    ConnectionManager manager(config);
    const auto semaphore = std::make_shared<plk::Semaphore>();
    ConnectionManagerPeer::AddWaiter(manager, semaphore);
    ConnectionManagerPeer::AddWaiter(manager, std::make_shared<plk::Semaphore>());
    manager.Start();
    EXPECT_EQ(platform.RequestConnection("first", "grouped").WaitForVerdict(), 0);
    semaphore->Wait();
    EXPECT_EQ(platform.RequestConnection("second", "grouped").WaitForVerdict(), 0);
    std::vector<unsigned int> handles;
    manager.Stop(&handles);
    ASSERT_EQ(handles.size(), 1U);
    const auto accepts = platform.Journal(Call::CmAccept);
    EXPECT_EQ(accepts[0].arguments, "\"first\", \"grouped\", 7, 4294967295");
    EXPECT_EQ(accepts[1].arguments, "\"second\", \"grouped\", 7, " + std::to_string(handles[0]));
}

TEST_F(ConnectionManagerTest, StopClosesWhatItMadeAndWakesWhoStillWaits)
{
    EXPECT_EQ(VerdictFor("single"), 0);
    EXPECT_EQ(platform.Count(Call::HandleClose), 1U);
    ConnectionManager manager(config);
    const auto semaphore = std::make_shared<plk::Semaphore>();
    ConnectionManagerPeer::AddWaiter(manager, semaphore);
    manager.Stop(nullptr);
    semaphore->Wait();
}

TEST_F(ConnectionManagerTest, ReplacedEndpointIsHeldOnlyWhenOwned)
{
    config.onConnect = [this](auto, auto, auto, auto, unsigned int& handle)
    {
        handle = endpoint;
        return true;
    };
    for (const bool owned : {false, true})
    {
        config.ownHandles = owned;
        std::vector<unsigned int> handles;
        EXPECT_EQ(VerdictFor("grouped", &handles), 0);
        EXPECT_EQ(handles.size(), owned ? 1U : 0U);
    }
}

TEST_F(ConnectionManagerTest, EndpointThatWasNotAskedForIsClosed)
{
    config.groupHandles = {{3, endpoint}};
    platform.Override().cmAccept = [](auto client, auto service, auto, auto, std::uint32_t* handle)
    {
        *handle = 41;
        return XoCmDrop(client, service);
    };
    VerdictFor("grouped");
    EXPECT_EQ(platform.Journal(Call::HandleClose).at(0).arguments, "41");
}

TEST_F(ConnectionManagerTest, RefusalThrowAndFailedAcceptDropTheClient)
{
    std::vector<bool> told;
    config.onAccepted = [&](auto, auto, auto, auto, auto, bool accepted)
    {
        told.push_back(accepted);
    };
    platform.Return(Call::CmAccept, {.code = XoNoResources});
    EXPECT_EQ(VerdictFor("grouped"), XoRefused);
    config.onConnect = [](auto&&...)
    {
        return false;
    };
    EXPECT_EQ(VerdictFor("single"), XoRefused);
    config.onConnect = [](auto&&...) -> bool
    {
        throw std::runtime_error("no");
    };
    EXPECT_EQ(VerdictFor("grouped"), XoRefused);
    EXPECT_THAT(told, ElementsAre(false));
    EXPECT_THAT(lines,
                Contains("error: client.grouped:7 #3: not accepted: XoCmAccept() = " +
                         std::to_string(XoNoResources) + " (XoCmDrop()=0)"));
    EXPECT_THAT(lines, Contains("client.single:8 #0: not accepted by user (XoCmDrop=0)"));
    EXPECT_THAT(lines, Contains("client.grouped:7 #3: not accepted by user (XoCmDrop=0)"));
}

TEST_F(ConnectionManagerTest, UnknownServiceCostsAPauseAndIsNotDropped)
{
    const auto client = platform.RequestConnection("client", "unknown");
    {
        ConnectionManager manager(config);
        ASSERT_TRUE(platform.WaitUntilCalled(Call::Sleep, 2)) << "seen again";
    }
    EXPECT_EQ(platform.Journal(Call::Sleep).at(0).arguments, "600");
    EXPECT_EQ(platform.Count(Call::CmDrop), 0U);
    EXPECT_THAT(lines, Contains("client.unknown: not found in user plan"));
}

TEST_F(ConnectionManagerTest, FailedListenAndEmptyNamesGoToTheNextRoundAtOnce)
{
    platform.Return(Call::CmListen, {.code = XoTimedOut});
    platform.Return(Call::CmListen, {.code = XoBroken});
    const auto nameless = platform.RequestConnection("", "single");
    EXPECT_EQ(VerdictFor("single"), 0);
    EXPECT_EQ(nameless.WaitForVerdict(), XoRefused);
    EXPECT_EQ(platform.Count(Call::Sleep), 0U);
    EXPECT_THAT(lines,
                ElementsAre("worker start",
                            "error: .: XoCmListen() = " + std::to_string(XoBroken),
                            "error: .single: XoCmListen(): empty client/service (0)",
                            "worker stop"));
    config.onLog = [](auto&&...)
    {
        throw std::runtime_error("no paper");
    };
    platform.Return(Call::CmListen, {.code = XoBroken});
    EXPECT_EQ(VerdictFor("single"), 0);
}

}  // namespace
