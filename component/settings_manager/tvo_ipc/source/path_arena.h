#pragma once

#include <array>
#include <string_view>

#include <component/settings_manager/tvo_ipc/limits.h>
#include <shared/common/tvo/ipc/arena/arena.h>

namespace settings_manager::ipc {

/// An arena for the text of one path, on the stack.
class PathArena final
{
public:
    PathArena() = default;
    PathArena(const PathArena&) = delete;
    PathArena& operator=(const PathArena&) = delete;

    [[nodiscard]] bool Store(std::string_view text, tvo::ipc::arena::Reference& reference)
    {
        return tvo::ipc::arena::WriteText(m_arena, text, limits::PathArena, reference);
    }

    wz_arena* Get()
    {
        return &m_arena;
    }

    void Reset()
    {
        m_arena.current = m_arena.start;
    }

private:
    std::array<unsigned char, limits::PathArena> m_bytes{};
    wz_arena m_arena{m_bytes.data(), m_bytes.data(), m_bytes.data() + m_bytes.size()};
};

}  // namespace settings_manager::ipc
