#include "front_support.h"

namespace settings_manager::service {
namespace {

class TransfersTest : public FrontTest
{
protected:
    /// A write of 65 nodes that waits for its last one.
    std::uint64_t Stage(std::size_t nodes = 64)
    {
        return Begin("big", Nodes(m_items).first(nodes), 65).token;
    }

    int Continue(FakeConnection& connection, std::uint64_t token, Nodes nodes, bool isLast)
    {
        ArenaBuffer arena(ipc::limits::ChunkArena);
        WriteNext request{.token = token, .last = isLast};
        EXPECT_TRUE(ipc::PackNodes(nodes, *arena.Get(), request.nodes));
        return connection.Ask(request, arena.Get()).result;
    }

    int Finish(FakeConnection& connection, std::uint64_t token)
    {
        return Continue(connection, token, Nodes(m_items).last(1), true);
    }

    std::size_t Received(const Reference& nodes)
    {
        Items items;
        EXPECT_TRUE(ipc::ReadNodes(*ism.received.Get(), nodes, items));
        return items.size();
    }

    Items m_items = ItemsOf("big", {List(64)});
};

}  // namespace

TEST_F(TransfersTest, Take64NodesInOneMessageAnd65InTwo)
{
    Put("small", {List(63)});
    auto response = BeginRead(ism, "small");
    EXPECT_EQ(std::tuple(response.count, response.token, Received(response.nodes)),
              std::tuple(64U, 0U, 64U));

    const std::uint64_t token = Stage();
    EXPECT_EQ(BeginRead(otherIsm, "big").result, codes::NotFound) << "not before it is whole";
    EXPECT_EQ(Finish(ism, token), 0);
    EXPECT_EQ(Finish(ism, token), codes::NotFound);
    response = BeginRead(ism, "big/");
    EXPECT_EQ(std::pair(response.count, Received(response.nodes)), std::pair(65UL, 64UL));
    Put("big/64", Text("comes too late for the reader"));
    const auto next = ism.Ask(ReadNext{.token = response.token});
    EXPECT_EQ(std::pair(int(next.last), Received(next.nodes)), std::pair(1, 1UL));
    EXPECT_EQ(ism.Ask(ReadNext{.token = response.token}).result, codes::NotFound);
    EXPECT_EQ(BeginRead(ism, "big").count, 66U);
}

TEST_F(TransfersTest, BelongToTheConnectionThatHasBegunThem)
{
    const std::uint64_t token = Stage();
    EXPECT_EQ(Finish(otherIsm, token), codes::NotFound);
    EXPECT_EQ(otherIsm.Ask(Cancel{.token = token}).result, codes::NotFound);
    EXPECT_EQ(ism.Ask(ReadNext{.token = token}).result, codes::NotFound) << "it is a write";
    otherIsm.End();
    EXPECT_EQ(Finish(ism, token), 0);
}

TEST_F(TransfersTest, LeaveNothingBehindWhenTheyDoNotComeToTheirEnd)
{
    std::uint64_t token = Stage();
    EXPECT_EQ(ism.Ask(Cancel{.token = token}).result, 0);
    EXPECT_EQ(Finish(ism, token), codes::NotFound) << "cancelled";
    token = Stage();
    ism.End();
    EXPECT_EQ(Finish(ism, token), codes::NotFound) << "connection lost";

    EXPECT_EQ(Finish(ism, Stage(63)), codes::InvalidSize) << "one is missing";
    EXPECT_EQ(Continue(ism, Stage(), Nodes(m_items).last(1), false), codes::InvalidSize);
    token = Stage();
    EXPECT_EQ(Continue(ism, token, Nodes(m_items).first(2), true), codes::InvalidSize);
    EXPECT_EQ(Finish(ism, token), codes::NotFound) << "went wrong before";
    EXPECT_EQ(Begin("big", Nodes(m_items).first(2), 1).result, codes::InvalidSize);
    for (const Reference& nodes : {Reference{2, 24}, {0, 25}, {0, 65 * 24}, {~0U, ~0U}})
    {
        token = Stage();
        ArenaBuffer arena(4096);
        arena.Get()->current = arena.Get()->end;
        ism.Ask(WriteNext{.token = token, .nodes = nodes}, arena.Get());
        EXPECT_EQ(ism.outcome, Outcome::Reject) << nodes.offset << "+" << nodes.size;
        EXPECT_EQ(Finish(ism, token), codes::NotFound) << "nothing is left of it";
    }
    EXPECT_EQ(BeginRead(ism, "big").result, codes::NotFound);
}

TEST_F(TransfersTest, AreBoundedInNumber)
{
    for (std::size_t i = 0; i < TransferTable::MostOfConnection; ++i)
    {
        EXPECT_NE(Stage(), 0U);
    }
    EXPECT_EQ(Begin("big", Nodes(m_items).first(64), 65).result, codes::InsufficientResources);
}

TEST(TransferTable, DropsWhatIsNotContinuedFor30Seconds)
{
    using std::chrono::seconds;
    TransferTable table;
    const TransferTable::Moment begin{};
    const StagedWrite write(WriteMode::Create, {}, 2);
    const std::uint64_t idle = table.Add(1, begin, write);
    const std::uint64_t busy = table.Add(1, begin, write);
    table.PutBack(busy, 1, begin + seconds(1), table.Take<StagedWrite>(busy, 1));
    table.RemoveIdle(begin + TransferTable::Patience);
    EXPECT_EQ(CodeOf([&] { table.Remove(idle, 1); }), codes::NotFound);
    EXPECT_EQ(CodeOf([&] { table.Remove(busy, 1); }), 0);
}

/// What makes no sense as a message is rejected, what asks for nonsense gets a code.
TEST_F(FrontTest, RefusesMalformedRequests)
{
    constexpr int Rejected = 0;
    const std::pair<std::string, int> rows[] = {
        {"<path to str fail: state = 7>", codes::InvalidArgument},
        {"/a", codes::InvalidArgument},
        {std::string(512, 'a'), codes::InvalidArgument},  // one more when written in full
        {std::string(513, 'a'), Rejected},
        {"b", codes::NotFound},
    };
    for (const auto& [path, code] : rows)
    {
        const int results[] = {BeginRead(ism, path).result,
                               ism.AskAbout(path, Delete{}).result,
                               ism.AskAbout(path, GetAttrib{}).result,
                               ism.AskAbout(path, SetAttrib{}).result};
        EXPECT_THAT(results, testing::Each(code)) << path;
        EXPECT_EQ(ism.outcome == Outcome::Reject, code == Rejected) << path;
    }
    EXPECT_EQ(ism.AskAbout("", Read{.mode = 0}).result, codes::InvalidArgument);
    ism.Ask(Delete{.path = {0xFFFFFFF0U, 0x20}});
    EXPECT_EQ(ism.outcome, Outcome::Reject) << "a reference that wraps";
    ism.Ask(Cancel{}, nullptr, 8);
    EXPECT_EQ(ism.outcome, Outcome::Reject) << "an unknown method";
    ism.Ask(Cancel{}, nullptr, Cancel::Mid, sizeof(wz_message));
    EXPECT_EQ(ism.outcome, Outcome::Reject) << "a header alone";
}

}  // namespace settings_manager::service
