#include <csignal>
#include <fstream>

#include "service_fixture.h"

namespace {

using namespace settings_manager;

using support::Process;

const nvl::Path Big = nvl::Root / "big";

/// 100,000 nodes: a map of 1000 lists, one of which is shorter.
Setting BigTree()
{
    Map top;
    for (std::size_t i = 0; i < 1000; ++i)
    {
        List list(i == 0 ? 98 : 99, Setting{static_cast<long>(i)});
        list.at(i % 98) = {std::string(i, 'x'), {.isReadOnly = i % 2 == 0}};
        top["list-" + std::to_string(i)] = {std::move(list)};
    }
    return {std::move(top)};
}

void ReadBigTree()
{
    Setting read;
    EXPECT_EQ(As<ISettingsGetter>(Connect()).GetSetting(Big, read), 0);
    EXPECT_TRUE(read == BigTree());
}

}  // namespace

class Tool : public ServiceFixture
{};

TEST_F(Tool, TakesAHundredThousandNodesFromOneServiceToTheNext)
{
    StartAndWait();
    const auto writeBigTree = []
    {
        EXPECT_EQ(As<ISettingsCreator>(Connect()).CreateSetting(Big, BigTree()), 0);
    };
    ASSERT_TRUE(Child(writeBigTree).Succeeds());
    ASSERT_TRUE(Child(ReadBigTree).Succeeds());
    const std::string dump = RunTool({"dump", "big"});
    std::ofstream(folder / "dump") << dump;
    service->Kill();
    std::filesystem::rename(folder / "db", folder / "old");
    std::filesystem::remove(folder / "db-wal");
    StartAndWait();
    RunTool({"load", folder / "dump"});
    EXPECT_TRUE(Child(ReadBigTree).Succeeds());
    EXPECT_TRUE(RunTool({"dump", "big"}) == dump);
}

TEST_F(Tool, PrintsWhatHasChangedWhileItSawNothing)
{
    StartAndWait();
    RunTool({"create", "w/changed", "1"});
    RunTool({"create", "w/deleted", "x"});
    Process watch({TVO_TVOCTL, {"settings", "watch", "w", "--initial"}, {}, {}});
    ASSERT_TRUE(watch.WaitForText("initial")) << watch.Errors();
    ::kill(watch.Id(), SIGSTOP);
    service->Kill();
    StartAndWait();
    RunTool({"set", "w/changed", "2"});
    RunTool({"create", "w/created", "x"});
    RunTool({"delete", "w/deleted"});
    ::kill(watch.Id(), SIGCONT);
    ASSERT_TRUE(watch.WaitForText("deleted\tw/deleted")) << watch.Errors();
    RunTool({"set", "w/changed", "3"});
    ASSERT_TRUE(watch.WaitForText("\"3\"")) << watch.Output();
    ::kill(watch.Id(), SIGTERM);
    EXPECT_EQ(watch.ExitStatus(), 0);
    EXPECT_EQ(watch.Output(),
              "initial\tw\t{\"changed\":\"1\",\"deleted\":\"x\"}\n"
              "value\tw/changed\t\"2\"\n"
              "created\tw/created\t\"x\"\n"
              "deleted\tw/deleted\n"
              "value\tw/changed\t\"3\"\n");
}
