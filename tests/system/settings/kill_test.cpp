// How many rounds: TVO_SETTINGS_ROUNDS. What happens when: TVO_SETTINGS_SEED.

#include <algorithm>
#include <array>
#include <atomic>
#include <iostream>
#include <random>
#include <thread>

#include <component/plk/result_codes.h>

#include "service_fixture.h"

namespace {

using namespace settings_manager;

constexpr std::size_t Writers = 3;
const nvl::Path Top = nvl::Root / "writers";

/// The number of a writer's value and that of its tree.
using Numbers = std::pair<long, long>;
using Snapshot = std::array<Numbers, Writers>;

struct Board
{
    struct Writer
    {
        std::atomic<long> begun = 0;
        std::atomic<long> value = 0;  ///< acknowledged
        std::atomic<long> tree = 0;   ///< acknowledged
    };

    [[nodiscard]] Snapshot Acknowledged() const
    {
        Snapshot snapshot;
        std::ranges::transform(writers,
                               snapshot.begin(),
                               [](const auto& one) { return Numbers(one.value, one.tree); });
        return snapshot;
    }

    std::array<Writer, Writers> writers;
    // How often each of the writers, and the reader, has connected and found all in order.
    std::array<std::atomic<int>, Writers + 1> connections;
    std::atomic<bool> isStopping = false;
};

std::string NameOf(std::size_t writer)
{
    return "w" + std::to_string(writer);
}

/// Up to 132 nodes, which take one to three messages and all know the number.
Setting TreeOf(long number)
{
    const auto count = static_cast<std::size_t>(number * 37 % 130);
    return {Map{{"number", {number}}, {"list", {List(count, Setting{number})}}}};
}

/// Operations succeed, or the service has gone.
bool IsDone(int result)
{
    EXPECT_TRUE(result == 0 || result == plk::codes::MediaError) << result;
    return result == 0;
}

/// @returns nothing when the service has gone
std::optional<Snapshot> Read(const Manager& manager)
{
    Setting top;
    if (!IsDone(As<ISettingsGetter>(manager).GetSetting(Top, top)))
    {
        return std::nullopt;
    }
    const auto at = [](const Setting& map, const std::string& name) -> const Setting&
    {
        return std::get<Map>(map.value).at(name);
    };
    Snapshot snapshot;
    for (std::size_t i = 0; i < Writers; ++i)
    {
        const Setting& own = at(top, NameOf(i));
        const Setting& tree = at(own, "tree");
        const long number = std::get<long>(at(tree, "number").value);
        snapshot[i] = {std::get<long>(at(own, "value").value), number};
        EXPECT_TRUE(tree == TreeOf(number)) << "half a tree";
        EXPECT_LE(number, snapshot[i].first) << "a value is written before its tree";
    }
    return snapshot;
}

/// Reads what is there after a start, and holds it against what was acknowledged before.
bool IsAllThere(const Manager& manager, Board& board, std::size_t self)
{
    const Snapshot least = board.Acknowledged();
    const auto now = Read(manager);
    for (std::size_t i = 0; now && i < Writers; ++i)
    {
        EXPECT_GE(now->at(i).first, least[i].first) << "lost a value of writer " << i;
        EXPECT_GE(now->at(i).second, least[i].second) << "lost a tree of writer " << i;
        EXPECT_LE(now->at(i).first, board.writers[i].begun);
    }
    board.connections.at(self) += now ? 1 : 0;
    return now.has_value();
}

bool Write(const Manager& manager, std::size_t self, Board::Writer& writer)
{
    const nvl::Path own = Top / NameOf(self);
    const long number = ++writer.begun;
    if (!IsDone(As<ISettingsValueSetter>(manager).SetValue(own / "value", {number})))
    {
        return false;
    }
    writer.value = number;
    const bool isDone =
        IsDone(As<ISettingsSetter>(manager).SetSetting(own / "tree", TreeOf(number)));
    writer.tree = isDone ? number : writer.tree.load();
    return isDone;
}

/// Reads or writes in one process a life of the service. They do not end the client in order, which
/// takes a second when the service has gone.
void WorkInNewProcesses(Board& board, std::size_t self)
{
    const auto work = [&]
    {
        static const Manager manager = Connect();
        bool isAlive = manager && IsAllThere(manager, board, self);
        while (isAlive && !board.isStopping)
        {
            isAlive = self < Writers ? Write(manager, self, board.writers.at(self))
                                     : Read(manager).has_value();
        }
    };
    while (!board.isStopping)
    {
        EXPECT_TRUE(Child(work).Succeeds());
    }
}

class KilledService : public ServiceFixture
{
protected:
    void StartAndWaitForAll()
    {
        const std::vector<int> before(board.connections.begin(), board.connections.end());
        Start();
        WaitUntil("all have connected anew and found all in order",
                  [&] { return std::ranges::equal(before, board.connections, std::less<>()); });
    }

    /// One life in four is too short for most of them.
    void LiveForAWhile()
    {
        const bool isShort = random() % 4 == 0;
        isShort ? Start() : StartAndWaitForAll();
        std::this_thread::sleep_for(
            std::chrono::microseconds(random() % (isShort ? 40'000 : 10'000)));
        service->Kill();
    }

    const std::uint32_t seed =
        support::FromEnvironment("TVO_SETTINGS_SEED", std::random_device()());
    std::mt19937 random{seed};
    Board& board = MakeShared<Board>();
};

}  // namespace

TEST_F(KilledService, HasEveryAcknowledgedWriteAndNoHalfTree)
{
    std::cout << "seed " << seed << std::endl;
    StartAndWait();
    const auto createTop = []
    {
        Map top;
        for (std::size_t i = 0; i < Writers; ++i)
        {
            top[NameOf(i)] = {Map{{"value", {0L}}, {"tree", TreeOf(0)}}};
        }
        EXPECT_EQ(As<ISettingsCreator>(Connect()).CreateSetting(Top, {top}), 0);
    };
    ASSERT_TRUE(Child(createTop).Succeeds());
    service->Kill();
    std::vector<std::unique_ptr<Child>> workers;
    for (std::size_t i = 0; i <= Writers; ++i)
    {
        workers.push_back(std::make_unique<Child>([this, i] { WorkInNewProcesses(board, i); }));
    }
    for (std::uint32_t left = support::FromEnvironment("TVO_SETTINGS_ROUNDS", 200); left != 0;
         --left)
    {
        LiveForAWhile();
    }
    StartAndWaitForAll();
    board.isStopping = true;
    for (const auto& worker : workers)
    {
        EXPECT_TRUE(worker->Succeeds());
    }
    const auto readAtLast = [this]
    {
        EXPECT_EQ(Read(Connect()), board.Acknowledged());
    };
    EXPECT_TRUE(Child(readAtLast).Succeeds());
    for (const auto& [value, tree] : board.Acknowledged())
    {
        EXPECT_GT(tree, 0);
        std::cout << value << " rounds of a writer" << std::endl;
    }
}
