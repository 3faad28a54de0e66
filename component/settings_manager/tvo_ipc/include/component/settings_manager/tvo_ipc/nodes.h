#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include <component/settings_manager/raw_item.h>
#include <component/settings_manager/tvo_ipc/wz_ism.h>
#include <shared/common/tvo/ipc/arena/arena.h>

namespace settings_manager::ipc {

/// Writes the bytes of one field behind what the arena holds; an empty field takes one byte.
/// @returns false, with an invalid reference and the arena unchanged, for a field over its limit or
///          over the arena's room
[[nodiscard]] bool StoreField(wz_arena& arena,
                              std::span<const unsigned char> bytes,
                              std::uint32_t limit,
                              tvo::ipc::arena::Reference& reference);

/// Writes the nodes of one message into the arena: the items' blocks, then the array that `nodes`
/// refers to. Takes the first items that fit, at most `limits::NodesInMessage`. An item over its
/// limits, or over the room left, is logged and left out with all behind it. The arena stays zero
/// behind what it holds.
/// @returns how many items went, 0 only for no items; nothing when not even the first one fits, the
///          reference is invalid then
[[nodiscard]] std::optional<std::size_t> PackNodes(std::span<const impl::RawItem> items,
                                                   wz_arena& arena,
                                                   tvo::ipc::arena::Reference& nodes);

/// Appends the nodes of a received message to the items, in their order.
/// @returns false for a reference that is bad by itself or points out of the arena, for more nodes
///          than a message may have, and for blocks over their limits; good nodes beside bad ones
///          are appended all the same
[[nodiscard]] bool ReadNodes(const wz_arena& arena,
                             const tvo::ipc::arena::Reference& nodes,
                             std::vector<impl::RawItem>& items);

}  // namespace settings_manager::ipc
