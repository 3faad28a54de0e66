#include <algorithm>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/settings_manager/tvo_ipc/limits.h>
#include <component/settings_manager/tvo_ipc/nodes.h>

namespace settings_manager::ipc {
namespace {

using tvo::ipc::arena::Buffer;
using tvo::ipc::arena::Reference;

impl::RawItem MakeItem(std::size_t path, std::size_t value, std::size_t attrib)
{
    impl::RawItem item;
    item.path.assign(path, 'p');
    item.value.assign(value, 0x56);
    item.attrib.assign(attrib, 0x41);
    return item;
}

using Bytes = std::vector<unsigned char>;

TEST(Nodes, PacksWhatFits)
{
    const impl::RawItem small = MakeItem(1, 16, 16);
    const impl::RawItem largest = MakeItem(512, 8192, 16);
    using Items = std::vector<impl::RawItem>;
    using Packed = std::optional<std::size_t>;
    const std::tuple<const char*, Items, std::size_t, Packed, std::size_t> rows[] = {
        {"no item has room for one record", {}, 24, 0, 0},
        {"its blocks have no room", {small}, 30, std::nullopt, 1},
        {"empty fields take a byte each", {MakeItem(0, 0, 0)}, 4 + 24, 1, 0},
        {"the second array has no room", {small, small}, 68 + 2 * 24 - 1, 1, 0},
        {"a path over its limit", {MakeItem(513, 16, 16)}, 60000, std::nullopt, 1},
        {"a value over its limit", {MakeItem(1, 8193, 16)}, 60000, std::nullopt, 1},
        {"attributes over their limit", {MakeItem(1, 16, 17)}, 60000, std::nullopt, 1},
        {"ends before what is over", {small, MakeItem(1, 8193, 16), small}, 60000, 1, 1},
        {"64 of the largest", std::vector(65, largest), limits::ChunkArena, 64, 0},
    };
    for (const auto& [what, items, room, wanted, warnings] : rows)
    {
        SCOPED_TRACE(what);
        const tvo::logger::testing::RecordingLogger log;
        Buffer arena(room);
        Reference nodes{};
        const auto packed = PackNodes(items, *arena.Get(), nodes);
        EXPECT_EQ(packed, wanted);
        EXPECT_EQ(nodes.size, packed ? *packed * 24 : tvo::ipc::arena::InvalidReference);
        EXPECT_EQ(log.Lines().size(), warnings);
        EXPECT_TRUE(std::all_of(arena.Get()->current, arena.Get()->end, std::logical_not()));
        std::vector<impl::RawItem> back;
        ASSERT_EQ(ReadNodes(*arena.Get(), nodes, back), packed.has_value());
        ASSERT_EQ(back.size(), packed.value_or(0));
        const auto isEqual = [](const auto& left, const auto& right)
        {
            return std::tie(left.path, left.value, left.attrib) ==
                   std::tie(right.path, right.value, right.attrib);
        };
        EXPECT_TRUE(std::equal(back.begin(), back.end(), items.begin(), isEqual));
    }
}

TEST(Nodes, TakesNoMoreThanAMessageMayBring)
{
    // Nodes that all refer to the same large block would unfold to gigabytes.
    for (const auto& [count, value, isGood] :
         {std::tuple{64U, 8192U, true}, {65U, 8192U, false}, {1U, 8193U, false}})
    {
        const std::vector<vx_settings_manager_Types_WzNode> array(count,
                                                                  {{0, 1}, {0, value}, {0, 16}});
        Bytes bytes(20000);
        std::memcpy(bytes.data(), array.data(), count * 24);
        const wz_arena arena{bytes.data(), bytes.data() + 20000, bytes.data() + 20000};
        std::vector<impl::RawItem> items;
        EXPECT_EQ(ReadNodes(arena, {0, count * 24}, items), isGood) << count << ' ' << value;
    }
}

}  // namespace
}  // namespace settings_manager::ipc
