#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

namespace settings_manager::impl {

static_assert(std::endian::native == std::endian::little);

/// Writes the bytes of a value at an offset at which the block has room for them.
template <class T>
void Put(std::vector<unsigned char>& block, std::size_t offset, const T& value)
{
    static_assert(std::is_trivially_copyable_v<T>);
    std::memcpy(block.data() + offset, &value, sizeof(value));
}

/// Reads a value from an offset at which the block holds enough bytes.
template <class T>
T Get(const std::vector<unsigned char>& block, std::size_t offset)
{
    static_assert(std::is_trivially_copyable_v<T> && !std::is_same_v<T, bool>);
    T value;
    std::memcpy(&value, block.data() + offset, sizeof(value));
    return value;
}

}  // namespace settings_manager::impl
