#include <chrono>
#include <csignal>
#include <semaphore>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/path_to_str.h>
#include <component/settings_manager/tvo_ipc/create_settings_manager.h>
#include <component/settings_manager/tvo_ipc/service_names.h>

#include "store_support.h"

namespace settings_manager::service {
namespace {

/// The program as it is installed, in a rendezvous folder of the test's own.
class ProgramTest : public testing::Test
{
protected:
    ProgramTest()
    {
        ::setenv("TVO_RUNTIME_DIR", m_runtime.File("tvo").c_str(), 1);
    }

    ~ProgramTest() override
    {
        Stop(SIGKILL);
    }

    void Start()
    {
        std::string server = std::string("--server=") + service_names::RdpPersistent;
        std::string database = "--database=" + File();
        char program[] = SETTINGS_MANAGER_PROGRAM;
        char* const argv[] = {program, server.data(), database.data(), nullptr};
        ASSERT_EQ(::posix_spawn(&m_pid, program, nullptr, nullptr, argv, environ), 0);
    }

    /// @returns the status of its end
    int Stop(int signal)
    {
        int status = -1;
        if (m_pid != 0)
        {
            ::kill(m_pid, signal);
            ::waitpid(std::exchange(m_pid, 0), &status, 0);
        }
        return status;
    }

    static std::shared_ptr<ISettingsManager> Connect()
    {
        std::shared_ptr<ISettingsManager> manager;
        const ipc::SettingsManagerCmConfig config{service_names::RdpPersistent, 5000, 0};
        EXPECT_EQ(ipc::CreateSettingsManager(config, manager), 0);
        return manager;
    }

    [[nodiscard]] std::string File() const
    {
        return m_folder.File("db");
    }

private:
    static inline const TempFolder m_runtime;  // opened once, for the life of the process

    TempFolder m_folder;
    pid_t m_pid = 0;
};

/// One of the faces of a manager.
template <class Face>
Face& As(const std::shared_ptr<ISettingsManager>& manager)
{
    return dynamic_cast<Face&>(*manager);
}

struct Observer final : ISettingsUpdateObserver
{
    int OnSettingsUpdate(const nvl::Path& path, unsigned char kinds) override
    {
        seen.push_back(fmt::format("{} {}", path, kinds));
        arrived.release();
        return 0;
    }

    std::vector<std::string> seen;
    std::counting_semaphore<> arrived{0};
};

}  // namespace

TEST_F(ProgramTest, HasEverythingThatWasAnsweredAfterItWasKilled)
{
    const Setting sample = SampleTree();
    const Setting big{List(1000, {List(99, {1})})};
    Start();
    {
        const auto manager = Connect();
        auto& creator = As<ISettingsCreator>(manager);
        EXPECT_EQ(creator.CreateSetting(nvl::Root / "big", big), 0);
        EXPECT_EQ(creator.CreateSetting(nvl::Root / "big", big), codes::Found);
        EXPECT_EQ(creator.CreateSetting(nvl::Root / "t", sample), 0);
        EXPECT_EQ(As<ISettingsDeleter>(manager).DeleteSetting(nvl::Root / "t"),
                  codes::AccessDenied);
        EXPECT_EQ(As<ISettingsSetter>(manager).SetAttribute(nvl::Root / "t" / "fixed", {}), 0);
    }
    Stop(SIGKILL);
    Start();
    const auto manager = Connect();
    Setting read;
    EXPECT_EQ(As<ISettingsGetter>(manager).GetSetting(nvl::Root / "big", read), 0);
    EXPECT_TRUE(read == big) << "100,001 nodes";
    EXPECT_EQ(As<ISettingsGetter>(manager).GetSetting(nvl::Root / "t", read), 0);
    Setting wanted = sample;
    std::get<Map>(wanted.value).at("fixed").attributes = {};
    EXPECT_EQ(read, wanted);
    EXPECT_EQ(std::filesystem::status(File()).permissions(), std::filesystem::perms(0600));
    const int status = Stop(SIGTERM);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

TEST_F(ProgramTest, TellsASubscriberEachChangeOnceAndInOrder)
{
    Start();
    const auto writer = Connect();
    auto& creator = As<ISettingsCreator>(writer);
    EXPECT_EQ(creator.CreateSetting(nvl::Root / "n", {List(1)}), 0);
    const auto observer = std::make_shared<Observer>();
    SubscriptionId sid = 0;
    auto& subscriber = As<ISettingsUpdateSubscriber>(writer);
    EXPECT_EQ(subscriber.Subscribe(nvl::Root / "n", observer, sid), 0);
    std::vector<std::string> wanted;
    for (unsigned long i = 1; i <= 500; ++i)
    {
        EXPECT_EQ(creator.CreateSetting(nvl::Root / "n" / i, {long(i)}), 0);
        wanted.push_back(fmt::format("n/{}/ 7", i));
    }
    for (std::size_t i = 0; i < wanted.size(); ++i)
    {
        ASSERT_TRUE(observer->arrived.try_acquire_for(std::chrono::seconds(10))) << i;
    }
    EXPECT_EQ(subscriber.Unsubscribe(sid), 0);
    EXPECT_EQ(observer->seen, wanted);
}

}  // namespace settings_manager::service
