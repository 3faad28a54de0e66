#pragma once

#include <cstddef>
#include <vector>

#include <component/settings_manager/setting.h>

namespace settings_manager::impl {

/// The byte blocks in which a node travels and is kept. Numbers are little-endian.
///
///     attribute block, 16 bytes:  version 8, attributes 1, zeros 7
///     value block, 16 bytes or more:  kind 8, number or length 8, characters or bytes
///
/// A small number fills the low bytes of its eight, the rest is zero. A string counts and carries
/// its terminating zero. List and map carry nothing of their children, a list only says how many.
struct Raw final
{
    using Block = std::vector<unsigned char>;

    static constexpr std::size_t HeaderSize = 16;
    static constexpr unsigned long Version = 0x10000;

    /// @throws nvl::Error `InvalidSize` unless the block holds at least `wanted` bytes
    static void Check(const Block& block, unsigned long wanted);

    [[nodiscard]] static Block FromAttributes(const Attributes& attributes);

    /// Bytes behind the attributes are ignored.
    /// @throws nvl::Error `InvalidSize`, `InvalidVersion`
    [[nodiscard]] static Attributes ToAttributes(const Block& block);

    /// @throws nvl::Error `InvalidState` for a value that holds nothing at all
    [[nodiscard]] static Block FromValue(const Setting::Variant& value);

    /// Replaces the value; after an exception it is as it was. Takes any bytes: those behind the
    /// value are ignored. A list comes out empty, with room for as many elements as the block says,
    /// yet for no more than there are indices.
    /// @throws nvl::Error `InvalidSize`, `InvalidIndex`; std::length_error for a length that no
    ///         string, blob or list can have
    static void ToValue(const Block& block, Setting::Variant& value);
};

}  // namespace settings_manager::impl
