#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

#include <component/settings_manager/tvo_ipc/limits.h>
#include <wz/message.h>

namespace settings_manager::ipc {

/// A large arena for one operation, all zero. Taken from fresh pages a megabyte's half costs more
/// than a call does, so each thread keeps one block, and what is cleared is what was written: all
/// bytes behind `current` are zero at any time. To be used by one thread.
class ZeroedArena final
{
public:
    /// @param size  at most `limits::WriteArena`
    /// @throws std::bad_alloc
    explicit ZeroedArena(std::size_t size);
    ~ZeroedArena();

    ZeroedArena(const ZeroedArena&) = delete;
    ZeroedArena& operator=(const ZeroedArena&) = delete;

    /// Makes the whole arena zero and free again.
    void Reset();

    wz_arena* Get()
    {
        return &m_arena;
    }

private:
    struct Free
    {
        void operator()(unsigned char* block) const
        {
            std::free(block);
        }
    };
    using Block = std::unique_ptr<unsigned char, Free>;

    static Block TakeBlock();

    static thread_local Block t_spare;

    Block m_block;
    wz_arena m_arena;
};

}  // namespace settings_manager::ipc
