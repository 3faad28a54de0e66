#include <algorithm>
#include <cstring>

#include <shared/common/tvo/ipc/arena/arena.h>

namespace tvo::ipc::arena {

namespace {

std::size_t Used(const wz_arena& arena)
{
    return static_cast<std::size_t>(arena.current - arena.start);
}

std::size_t Free(const wz_arena& arena)
{
    return static_cast<std::size_t>(arena.end - arena.current);
}

}  // namespace

Buffer::Buffer(std::size_t size)
    : m_bytes(size == 0 ? nullptr : std::make_unique<unsigned char[]>(size)),
      m_arena{m_bytes.get(), m_bytes.get(), m_bytes.get() + size}
{}

void Buffer::Reset()
{
    m_arena.current = m_arena.start;
}

wz_arena* Buffer::Get()
{
    return &m_arena;
}

unsigned char* Take(wz_arena& arena, std::size_t size)
{
    if (size > Free(arena))
    {
        return nullptr;
    }
    unsigned char* bytes = arena.current;
    arena.current += size;
    return bytes;
}

bool WriteText(wz_arena& arena, std::string_view text, std::uint32_t limit, Reference& reference)
{
    const std::size_t used = Used(arena);
    const std::size_t room = std::max<std::size_t>(text.size(), 1);
    if (room > std::min<std::size_t>(limit, Free(arena)))
    {
        reference = {InvalidReference, InvalidReference};
        return false;
    }
    const auto size = static_cast<std::uint32_t>(text.size());
    if (used >= InvalidReference)
    {
        reference = {InvalidReference, size};
        return false;
    }
    unsigned char* bytes = Take(arena, room);
    if (!text.empty())
    {
        std::memcpy(bytes, text.data(), text.size());
    }
    reference = {static_cast<std::uint32_t>(used), size};
    return true;
}

std::optional<std::string_view> ReadText(const wz_arena& arena, const Reference& reference)
{
    // Differences only: an offset of foreign origin must not be added to a pointer unchecked.
    const auto used = static_cast<std::uint32_t>(Used(arena));
    if (arena.start == nullptr || reference.offset >= used ||
        reference.size > used - reference.offset)
    {
        return std::nullopt;
    }
    return std::string_view(reinterpret_cast<const char*>(arena.start) + reference.offset,
                            reference.size);
}

}  // namespace tvo::ipc::arena
