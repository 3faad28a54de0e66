#include <array>
#include <atomic>
#include <csignal>

#include <sys/wait.h>

#include <component/settings_manager/path_to_str.h>
#include <support/process_figures.h>

#include "service_fixture.h"

namespace {

using namespace settings_manager;

using Updates = std::vector<std::string>;

constexpr std::size_t Bound = 4096;  ///< of the events that wait for one process
constexpr std::size_t Burst = 4000;
constexpr std::size_t Trees = 10;
constexpr std::size_t Processes = 10;

struct Board
{
    std::array<std::atomic<std::size_t>, Processes> seen;  ///< by all subscribers of a process
    std::atomic<std::size_t> subscribers = 0;
    std::atomic<bool> isFree = false;  ///< those that are stuck may go on
    std::atomic<bool> isEnd = false;
};

nvl::Path TreeOf(std::size_t number)
{
    return nvl::Root / fmt::format("t{}", number % Trees);
}

/// In each of the trees, nodes are created, written and deleted in turns.
int MakeChange(const Manager& manager, std::size_t number)
{
    const std::size_t step = number / Trees;
    const nvl::Path path = TreeOf(number) / fmt::format("n{}", step / 3);
    return step % 3 == 0   ? As<ISettingsCreator>(manager).CreateSetting(path, {1L})
           : step % 3 == 1 ? As<ISettingsValueSetter>(manager).SetValue(path, {2L})
                           : As<ISettingsDeleter>(manager).DeleteSetting(path);
}

std::string UpdateOf(std::size_t number)
{
    constexpr std::array Kinds{7, 2, 10};
    const std::size_t step = number / Trees;
    return fmt::format("t{}/n{}/ {}", number % Trees, step / 3, Kinds.at(step % 3));
}

class UpdatesOfService : public ServiceFixture
{
protected:
    UpdatesOfService()
    {
        StartAndWait();
        for (std::size_t i = 0; i < Trees; ++i)
        {
            RunTool({"create", fmt::format("t{}", i), "--type", "map"});
        }
    }

    /// Makes changes in bursts, and waits after each until the first processes have seen it.
    void MakeChanges(std::size_t from, std::size_t to, std::size_t processes)
    {
        const auto change = [=, this]
        {
            const Manager manager = Connect();
            for (std::size_t i = from; i < to; ++i)
            {
                ASSERT_EQ(MakeChange(manager, i), 0) << i;
                if ((i + 1) % Burst == 0 || i + 1 == to)
                {
                    WaitUntil("a burst is seen", [&] { return AreSeen(i + 1, 0, processes); });
                }
            }
        };
        ASSERT_TRUE(Child(change).Succeeds());
    }

    /// Whether processes from one to before another one have been told so often.
    [[nodiscard]] bool AreSeen(std::size_t count, std::size_t from, std::size_t to) const
    {
        return std::all_of(board.seen.begin() + static_cast<std::ptrdiff_t>(from),
                           board.seen.begin() + static_cast<std::ptrdiff_t>(to),
                           [count](const auto& seen) { return seen == count; });
    }

    void ExpectEndOfChildren()
    {
        board.isEnd = true;
        for (const auto& child : children)
        {
            EXPECT_TRUE(child->Succeeds());
        }
    }

    [[nodiscard]] std::size_t ServiceKiB() const
    {
        return support::ReadFigures(service->Id()).residentKiB;
    }

    Board& board = MakeShared<Board>();
    std::vector<std::unique_ptr<Child>> children;
};

struct Observer final : ISettingsUpdateObserver
{
    explicit Observer(std::function<void(std::string)> function) : take(std::move(function)) {}

    int OnSettingsUpdate(const nvl::Path& path, unsigned char kinds) override
    {
        take(fmt::format("{} {}", path, kinds));
        return 0;
    }

    const std::function<void(std::string)> take;
};

/// Subscribes to these, with a manager for each. @returns what each was told until the end
std::vector<Updates> Follow(const std::vector<nvl::Path>& paths,
                            std::size_t process,
                            Board& board,
                            bool isStuck)
{
    std::vector<Updates> updates(paths.size());
    std::vector<Manager> managers;
    for (std::size_t i = 0; i < paths.size(); ++i)
    {
        const auto take = [&, &told = updates[i]](std::string update)
        {
            WaitUntil("the observer may go on", [&] { return !isStuck || board.isFree; });
            told.push_back(std::move(update));
            ++board.seen.at(process);
        };
        managers.push_back(Connect());
        SubscriptionId sid = 0;
        auto& subscriber = As<ISettingsUpdateSubscriber>(managers.back());
        EXPECT_EQ(subscriber.Subscribe(paths[i], std::make_shared<Observer>(take), sid), 0);
        ++board.subscribers;
    }
    WaitUntil("the test is over", [&] { return board.isEnd.load(); });
    managers.clear();  // nobody is told anything any more
    return updates;
}

void ExpectEach(const Updates& updates, std::size_t first, std::size_t step, std::size_t end)
{
    ASSERT_EQ(updates.size(), (end - first + step - 1) / step);
    for (std::size_t i = 0; i < updates.size(); ++i)
    {
        ASSERT_EQ(updates[i], UpdateOf(first + i * step));
    }
}

}  // namespace

TEST_F(UpdatesOfService, ReachEachOfAHundredSubscribersOnceAndInOrder)
{
    constexpr std::size_t Changes = 10'000;
    const auto follow = [this](std::size_t process)
    {
        std::vector<nvl::Path> paths;
        std::generate_n(
            std::back_inserter(paths), Trees, [&paths] { return TreeOf(paths.size()); });
        const auto updates = Follow(paths, process, board, false);
        for (std::size_t i = 0; i < Trees; ++i)
        {
            ExpectEach(updates[i], i, Trees, Changes);
        }
    };
    for (std::size_t i = 0; i < Processes; ++i)
    {
        children.push_back(std::make_unique<Child>([&, i] { follow(i); }));
    }
    WaitUntil("all have subscribed", [&] { return board.subscribers == Processes * Trees; });
    MakeChanges(0, Changes, Processes);
    ExpectEndOfChildren();
}

TEST_F(UpdatesOfService, AreJoinedForThoseWhoDoNotTakeThemAndHinderNobody)
{
    constexpr std::size_t Changes = 40'000;
    constexpr std::size_t MostGrowthKiB = 512;
    const auto followStuck = [this](std::size_t process)
    {
        const Updates updates = Follow({nvl::Root}, process, board, true).front();
        ASSERT_EQ(updates.size(), Bound + 1);
        EXPECT_THAT(" 15", testing::AnyOf(updates[0], updates[1])) << "one may have gone before";
        EXPECT_EQ(updates.back(), UpdateOf(Changes)) << "a change after all was taken";
    };
    const auto follow = [this](std::size_t process)
    {
        ExpectEach(Follow({nvl::Root}, process, board, false).front(), 0, 1, Changes + 1);
    };
    for (std::size_t i = 0; i < 3; ++i)
    {
        children.push_back(
            std::make_unique<Child>([&, i] { i == 0 ? follow(i) : followStuck(i); }));
    }
    WaitUntil("all have subscribed", [&] { return board.subscribers == 3; });
    const pid_t stopped = children.back()->Id();
    ::kill(stopped, SIGSTOP);
    ::waitpid(stopped, nullptr, WUNTRACED);

    MakeChanges(0, 2 * Burst, 1);
    const std::size_t before = ServiceKiB();
    MakeChanges(2 * Burst, Changes, 1);
    EXPECT_LT(ServiceKiB(), before + MostGrowthKiB);
    EXPECT_TRUE(AreSeen(0, 1, 3));

    board.isFree = true;
    ::kill(stopped, SIGCONT);
    WaitUntil("what was joined is seen", [&] { return AreSeen(Bound, 1, 3); });
    MakeChanges(Changes, Changes + 1, 1);
    WaitUntil("one more change is seen", [&] { return AreSeen(Bound + 1, 1, 3); });
    ExpectEndOfChildren();
}
