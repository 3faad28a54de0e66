#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include <component/logger/logger.h>
#include <component/settings_manager/tvo_ipc/limits.h>
#include <component/settings_manager/tvo_ipc/nodes.h>

namespace settings_manager::ipc {

namespace {

using tvo::ipc::arena::Reference;
using Node = vx_settings_manager_Types_WzNode;

constexpr std::size_t NodeAlignment = alignof(Node);

static_assert(sizeof(Node) == limits::NodeRecord && NodeAlignment == 4);

std::span<const unsigned char> Bytes(std::string_view text)
{
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

/// Takes back what was written behind `mark`.
void Rewind(wz_arena& arena, unsigned char* mark)
{
    std::fill(mark, arena.current, static_cast<unsigned char>(0));
    arena.current = mark;
}

/// How far the cursor is from a place where an array of nodes may stand.
std::size_t Padding(const wz_arena& arena)
{
    const auto used = static_cast<std::size_t>(arena.current - arena.start);
    return (NodeAlignment - used % NodeAlignment) % NodeAlignment;
}

bool HasRoomForArray(const wz_arena& arena, std::size_t nodes)
{
    const auto room = static_cast<std::size_t>(arena.end - arena.current);
    return Padding(arena) + nodes * sizeof(Node) <= room;
}

bool StoreNode(const impl::RawItem& item, wz_arena& arena, Node& node)
{
    const bool path = StoreField(arena, Bytes(item.path), limits::Path, node.path);
    const bool value = StoreField(arena, item.value, limits::Value, node.value);
    const bool attrib = StoreField(arena, item.attrib, limits::Attrib, node.attrib);
    if (path && value && attrib)
    {
        return true;
    }
    TVO_LOG_WARNING(
        "[SM_P] ToWz(SMNode) fail: '{}': path/value/attrib size = {}/{}/{}, max = {}/{}/{}",
        item.path,
        item.path.size(),
        item.value.size(),
        item.attrib.size(),
        limits::Path,
        limits::Value,
        limits::Attrib);
    return false;
}

/// An empty array has its place as well.
bool StoreArray(std::span<const Node> array, wz_arena& arena, Reference& nodes)
{
    const std::size_t room = std::max(array.size_bytes(), sizeof(Node));
    const std::size_t padding = Padding(arena);
    unsigned char* const bytes = tvo::ipc::arena::Take(arena, padding + room);
    if (bytes == nullptr)
    {
        return false;
    }
    std::copy_n(
        reinterpret_cast<const unsigned char*>(array.data()), array.size_bytes(), bytes + padding);
    nodes = {static_cast<std::uint32_t>(bytes + padding - arena.start),
             static_cast<std::uint32_t>(array.size_bytes())};
    return true;
}

template <class Block>
bool ReadField(const wz_arena& arena, const Reference& field, std::uint32_t limit, Block& block)
{
    const auto bytes = tvo::ipc::arena::ReadText(arena, field);
    if (!bytes || bytes->size() > limit)
    {
        return false;
    }
    block.assign(bytes->begin(), bytes->end());
    return true;
}

bool ReadNode(const wz_arena& arena, const Node& node, impl::RawItem& item)
{
    return ReadField(arena, node.path, limits::Path, item.path) &&
           ReadField(arena, node.value, limits::Value, item.value) &&
           ReadField(arena, node.attrib, limits::Attrib, item.attrib);
}

}  // namespace

bool StoreField(wz_arena& arena,
                std::span<const unsigned char> bytes,
                std::uint32_t limit,
                Reference& reference)
{
    return tvo::ipc::arena::WriteText(
        arena, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}, limit, reference);
}

std::optional<std::size_t> PackNodes(std::span<const impl::RawItem> items,
                                     wz_arena& arena,
                                     Reference& nodes)
{
    nodes = {tvo::ipc::arena::InvalidReference, tvo::ipc::arena::InvalidReference};
    std::array<Node, limits::NodesInMessage> array;
    const std::size_t wanted = std::min<std::size_t>(items.size(), array.size());
    std::size_t packed = 0;
    while (packed < wanted && HasRoomForArray(arena, packed + 1))
    {
        unsigned char* const mark = arena.current;
        if (!StoreNode(items[packed], arena, array[packed]) || !HasRoomForArray(arena, packed + 1))
        {
            Rewind(arena, mark);
            break;
        }
        ++packed;
    }
    const bool isEmptyByFailure = packed == 0 && wanted != 0;
    if (isEmptyByFailure || !StoreArray({array.data(), packed}, arena, nodes))
    {
        return std::nullopt;
    }
    return packed;
}

bool ReadNodes(const wz_arena& arena, const Reference& nodes, std::vector<impl::RawItem>& items)
{
    const auto array = tvo::ipc::arena::ReadText(arena, nodes);
    if (nodes.size == 0)
    {
        return true;
    }
    if (!array || nodes.offset % NodeAlignment != 0 || nodes.size % sizeof(Node) != 0 ||
        nodes.size / sizeof(Node) > limits::NodesInMessage)
    {
        return false;
    }
    bool isGood = true;
    for (std::string_view rest = *array; !rest.empty(); rest.remove_prefix(sizeof(Node)))
    {
        Node node;
        std::memcpy(&node, rest.data(), sizeof(node));
        impl::RawItem item;
        if (ReadNode(arena, node, item))
        {
            items.push_back(std::move(item));
        }
        else
        {
            isGood = false;
        }
    }
    return isGood;
}

}  // namespace settings_manager::ipc
