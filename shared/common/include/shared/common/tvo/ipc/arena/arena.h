#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include <wz/message.h>

namespace tvo::ipc::arena {

/// A piece of variable data as a message refers to it. A text has no terminator and its size counts
/// none.
struct Reference
{
    std::uint32_t offset;  ///< bytes from the arena's start
    std::uint32_t size;    ///< bytes
};

static_assert(sizeof(Reference) == 8);
static_assert(offsetof(Reference, size) == 4);

/// Offset, and mostly size too, of a reference that could not be filled.
inline constexpr std::uint32_t InvalidReference = 0xFFFFFFFFU;

/// The bytes of one arena, zeroed, and the descriptor over them.
class Buffer
{
public:
    explicit Buffer(std::size_t size);
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    /// Makes the whole arena free again. The bytes are not cleared.
    void Reset();

    wz_arena* Get();

private:
    std::unique_ptr<unsigned char[]> m_bytes;
    wz_arena m_arena;
};

/// Takes bytes out of the arena's free part.
/// @returns their start, or null, with the arena unchanged, when there is no such room
unsigned char* Take(wz_arena& arena, std::size_t size);

/// Writes a text behind what the arena holds already. An empty text takes one byte all the same.
/// @param limit  longest text in bytes that the field may hold
/// @returns false when the text is over its limit or does not fit; `reference` is then invalid and
///          the arena unchanged
[[nodiscard]] bool WriteText(wz_arena& arena,
                             std::string_view text,
                             std::uint32_t limit,
                             Reference& reference);

/// Looks up a text in the used part of a received arena. Any reference may be asked for.
/// @returns the text, which lies in the arena, or nothing when the reference points out of it
[[nodiscard]] std::optional<std::string_view> ReadText(const wz_arena& arena,
                                                       const Reference& reference);

}  // namespace tvo::ipc::arena

namespace tvo::ipc::arena::conv {

/// Whether a conversion, or a row of them, has worked. The caller sets it to true beforehand;
/// conversions only ever clear it. Conversions are overloads of `ToWz` and `FromWz`, each beside
/// the type that it converts.
using Status = bool;

static_assert(sizeof(Status) == 1);

}  // namespace tvo::ipc::arena::conv
