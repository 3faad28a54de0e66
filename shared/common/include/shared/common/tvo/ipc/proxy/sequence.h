#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

#include <shared/common/tvo/ipc/arena/arena.h>

namespace tvoipc_detail::stdcpp_v1 {

/// A plain value: how it lies in a message and how programs hold it.
template <typename Wire, typename Host>
struct Primitive
{
    using WireType = Wire;
    using HostType = Host;
};

/// A sequence of at most `Limit` elements.
template <typename Element, std::size_t Limit>
struct Sequence
{
    using Host = typename Element::HostType;
    static_assert(sizeof(typename Element::WireType) == 1 && sizeof(Host) == 1,
                  "The arena is not aligned for wider elements");

    /// Copies the elements into the arena. An empty sequence takes no room there.
    /// @throws std::length_error  when there are more elements than `Limit`
    /// @throws std::runtime_error  when the arena has no room; it is unchanged then
    static void PackArgument(const std::vector<Host>& value,
                             tvo::ipc::arena::Reference& out,
                             wz_arena& arena)
    {
        if (value.size() > Limit)
        {
            throw std::length_error("?");
        }
        const auto offset = static_cast<std::uint32_t>(arena.current - arena.start);
        if (!value.empty())
        {
            unsigned char* bytes = tvo::ipc::arena::Take(arena, value.size());
            if (bytes == nullptr)
            {
                throw std::runtime_error("failed to allocate space in the arena");
            }
            std::memcpy(bytes, value.data(), value.size());
        }
        out = {offset, static_cast<std::uint32_t>(value.size())};
    }
};

}  // namespace tvoipc_detail::stdcpp_v1
