#include <future>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <platform/testing/platform_double.h>
#include <shared/common/tvo/ipc/connection_manager.h>
#include <shared/ipc_utils/publish.h>
#include <tvo/service_locator.h>
#include <tvo/task.h>
#include <xo/connection.h>

namespace {

using platform::testing::Call;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::FieldsAre;
using testing::HasSubstr;
using testing::StartsWith;
using tvo::ipc::ConnectionManager;

constexpr char Entity[] = "vx.tests.Manager";

/// A client asks for a service; its connection stays until the process ends.
int Verdict(const char* service)
{
    std::uint32_t connection = XoInvalidHandle;
    std::uint32_t riid = 0;
    return XoCmConnect(Entity, service, 5000, &connection, &riid);
}

class ConnectionManagerTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        static constexpr TvoComponentTree Tree{Entity, nullptr, 0, nullptr, 0};
        static const int once = TvoTaskSetComponentTree(TvoTaskGetSelf(), &Tree);
        EXPECT_EQ(once, XoOk);
        EXPECT_TRUE(shared::ipc_utils::TryPublishService("vx.tests.Interface", "grouped"));
    }

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
    int VerdictFor(const char* service) const
    {
        const ConnectionManager manager(config);
        return Verdict(service);
    }

    platform::testing::PlatformDouble platform;
    std::uint64_t registration = 0;
    unsigned int endpoint = ServiceLocatorRegister("endpoint", nullptr, 0, &registration);
    ConnectionManager::Config config;
    std::vector<std::string> lines;  ///< of a manager's thread; to be read when it has stopped
};

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
    EXPECT_THAT(lines, ElementsAre("worker start", "worker stop"));
    EXPECT_TRUE(manager.Start());
}

TEST_F(ConnectionManagerTest, AcceptsOnTheGroupsEndpointAndClosesOnlyWhatItMade)
{
    config.groupHandles = {{3, endpoint}};
    std::vector<std::tuple<std::string, std::string, unsigned, unsigned, unsigned, bool>> told;
    config.onAccepted = [&](const char* client, const char* service, auto... rest)
    {
        told.emplace_back(client, service, rest...);
        throw 1;
    };
    EXPECT_EQ(VerdictFor("grouped"), 0);
    EXPECT_THAT(told,
                ElementsAre(FieldsAre(StartsWith(Entity), "grouped", 7U, 3U, endpoint, true)));
    EXPECT_EQ(platform.Count(Call::HandleClose), 0U);
    EXPECT_EQ(VerdictFor("single"), 0);
    EXPECT_EQ(platform.Count(Call::HandleClose), 1U);
}

TEST_F(ConnectionManagerTest, MakesTheEndpointOfAGroupOnce)
{
    ConnectionManager manager(config);
    EXPECT_EQ(Verdict("grouped"), 0);
    EXPECT_EQ(Verdict("grouped"), 0);
    std::vector<unsigned int> handles;
    manager.Stop(&handles);
    ASSERT_EQ(handles.size(), 1U);
    const auto accepts = platform.Journal(Call::CmAccept);
    EXPECT_THAT(accepts[0].arguments, EndsWith("\"grouped\", 7, 4294967295"));
    EXPECT_THAT(accepts[1].arguments, EndsWith("\"grouped\", 7, " + std::to_string(handles[0])));
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
                Contains(HasSubstr(".grouped:7 #3: not accepted: XoCmAccept() = " +
                                   std::to_string(XoNoResources) + " (XoCmDrop()=0)")));
    EXPECT_THAT(lines, Contains(EndsWith(".single:8 #0: not accepted by user (XoCmDrop=0)")));
    EXPECT_THAT(lines, Contains(EndsWith(".grouped:7 #3: not accepted by user (XoCmDrop=0)")));
}

TEST_F(ConnectionManagerTest, UnknownServiceCostsAPauseAndIsNotDropped)
{
    platform.Fail(Call::Sleep);
    const auto client = std::async(std::launch::async, [] { return Verdict("unknown"); });
    {
        ConnectionManager manager(config);
        ASSERT_TRUE(platform.WaitUntilCalled(Call::Sleep, 2)) << "seen again";
    }
    EXPECT_EQ(platform.Journal(Call::Sleep).at(0).arguments, "600");
    EXPECT_EQ(platform.Count(Call::CmDrop), 0U);
    EXPECT_THAT(lines, Contains(EndsWith(".unknown: not found in user plan")));
    const std::string name = lines.at(1).substr(0, lines.at(1).find(".unknown"));
    EXPECT_EQ(XoCmDrop(name.c_str(), "unknown"), XoOk) << "still there";
}

TEST_F(ConnectionManagerTest, FailedListenAndEmptyNamesGoToTheNextRoundAtOnce)
{
    platform.Return(Call::CmListen, {.code = XoTimedOut});
    platform.Return(Call::CmListen, {.code = XoBroken});
    platform.Return(Call::CmListen, {.code = XoOk});
    platform.Return(Call::CmDrop, {.code = XoOk});
    EXPECT_EQ(VerdictFor("single"), 0);
    EXPECT_EQ(platform.Journal(Call::CmDrop).at(0).arguments, "\"\", \"\"");
    EXPECT_EQ(platform.Count(Call::Sleep), 0U);
    EXPECT_THAT(lines,
                ElementsAre("worker start",
                            "error: .: XoCmListen() = " + std::to_string(XoBroken),
                            "error: .: XoCmListen(): empty client/service (0)",
                            "worker stop"));
    config.onLog = [](auto&&...)
    {
        throw std::runtime_error("no paper");
    };
    platform.Return(Call::CmListen, {.code = XoBroken});
    EXPECT_EQ(VerdictFor("single"), 0);
}

}  // namespace
