// How many rounds: TVO_SETTINGS_ROUNDS. What happens when: TVO_SETTINGS_SEED.

#include <array>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <random>

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

    std::array<Writer, Writers> writers;
    // How often each of the writers, and the reader, has connected and found all in order.
    std::array<std::atomic<int>, Writers + 1> connections;
    std::atomic<bool> isStopping = false;
    std::atomic<bool> isFinal = false;
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

void CreateTop()
{
    Map top;
    for (std::size_t i = 0; i < Writers; ++i)
    {
        top[NameOf(i)] = {Map{{"value", {0L}}, {"tree", TreeOf(0)}}};
    }
    EXPECT_EQ(As<ISettingsCreator>(Connect()).CreateSetting(Top, {top}), 0);
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
        snapshot[i] = {std::get<long>(at(own, "value").value),
                       std::get<long>(at(tree, "number").value)};
        EXPECT_TRUE(tree == TreeOf(snapshot[i].second)) << "half a tree";
        EXPECT_LE(snapshot[i].second, snapshot[i].first) << "a value is written before its tree";
    }
    return snapshot;
}

Snapshot Acknowledged(const Board& board)
{
    Snapshot snapshot;
    std::ranges::transform(board.writers,
                           snapshot.begin(),
                           [](const auto& writer) { return Numbers(writer.value, writer.tree); });
    return snapshot;
}

/// Reads what is there after a start, and holds it against what was acknowledged before.
std::optional<Snapshot> ReadAndCheck(const Manager& manager, Board& board, std::size_t self)
{
    const Snapshot least = Acknowledged(board);
    const auto now = Read(manager);
    for (std::size_t i = 0; now && i < Writers; ++i)
    {
        EXPECT_GE(now->at(i).first, least[i].first) << "lost a value of writer " << i;
        EXPECT_GE(now->at(i).second, least[i].second) << "lost a tree of writer " << i;
        EXPECT_LE(now->at(i).first, board.writers[i].begun);
    }
    board.connections.at(self) += now ? 1 : 0;
    return now;
}

bool Write(const Manager& manager, const nvl::Path& own, Board::Writer& writer)
{
    const long number = ++writer.begun;
    if (!IsDone(As<ISettingsValueSetter>(manager).SetValue(own / "value", {number})))
    {
        return false;
    }
    writer.value = number;
    if (!IsDone(As<ISettingsSetter>(manager).SetSetting(own / "tree", TreeOf(number))))
    {
        return false;
    }
    writer.tree = number;
    return true;
}

void WriteUntilKilled(const Manager& manager, Board& board, std::size_t self)
{
    bool isAlive = ReadAndCheck(manager, board, self).has_value();
    while (isAlive && !board.isStopping)
    {
        isAlive = Write(manager, Top / NameOf(self), board.writers.at(self));
    }
}

/// Looks when it is told to, and has seen the last words of the writers in the end.
void FollowUntilKilled(const Manager& manager, Board& board)
{
    static std::atomic<bool> isTold = false;
    if (!IsDone(Subscribe(manager, Top, [](const std::string&) { isTold = true; })))
    {
        return;
    }
    auto now = ReadAndCheck(manager, board, Writers);
    const auto isOver = [&]
    {
        Attributes unused;
        now = isTold.exchange(false) ? Read(manager) : now;
        return !now || (board.isFinal && now == Acknowledged(board)) ||
               As<ISettingsGetter>(manager).GetAttribute(Top, unused) < 0;
    };
    WaitUntil("the reader sees what was acknowledged", isOver);
}

/// Does this in one process a life of the service. They do not end the client in order, which takes
/// a second when the service has gone.
void InNewProcesses(const std::atomic<bool>& isEnd, const std::function<void(const Manager&)>& body)
{
    while (!isEnd)
    {
        Child process(
            [&body]
            {
                static const Manager manager = Connect();
                if (manager)
                {
                    body(manager);
                }
            });
        EXPECT_TRUE(process.Succeeds());
    }
}

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise)
{
    const char* text = std::getenv(name);
    return text != nullptr ? static_cast<std::uint32_t>(std::stoul(text)) : otherwise;
}

class KilledService : public ServiceFixture
{
protected:
    void StartAndWaitForAll()
    {
        const std::vector<int> before(board.connections.begin(), board.connections.end());
        const auto areAll = [&]
        {
            return std::equal(
                before.begin(), before.end(), board.connections.begin(), std::less<>());
        };
        Start();
        WaitUntil("all have connected anew and found all in order", areAll);
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

    const std::uint32_t seed = FromEnvironment("TVO_SETTINGS_SEED", std::random_device()());
    std::mt19937 random{seed};
    Board& board = MakeShared<Board>();
};

}  // namespace

TEST_F(KilledService, HasEveryAcknowledgedWriteAndNoHalfTree)
{
    std::cout << "seed " << seed << std::endl;
    StartAndWait();
    ASSERT_TRUE(Child(CreateTop).Succeeds());
    service->Kill();
    std::vector<std::unique_ptr<Child>> writers;
    for (std::size_t i = 0; i < Writers; ++i)
    {
        const auto write = [this, i](const Manager& manager)
        {
            WriteUntilKilled(manager, board, i);
        };
        writers.push_back(
            std::make_unique<Child>([&] { InNewProcesses(board.isStopping, write); }));
    }
    const auto read = [this](const Manager& manager)
    {
        FollowUntilKilled(manager, board);
    };
    Child reader([&] { InNewProcesses(board.isFinal, read); });
    for (std::uint32_t left = FromEnvironment("TVO_SETTINGS_ROUNDS", 200); left != 0; --left)
    {
        LiveForAWhile();
    }
    StartAndWaitForAll();
    board.isStopping = true;
    for (const auto& writer : writers)
    {
        EXPECT_TRUE(writer->Succeeds());
    }
    board.isFinal = true;
    EXPECT_TRUE(reader.Succeeds());
    for (const auto& [value, tree] : Acknowledged(board))
    {
        EXPECT_GT(tree, 0);
        std::cout << value << " rounds of a writer" << std::endl;
    }
}
