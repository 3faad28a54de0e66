#include "zeroed_arena.h"

#include <algorithm>
#include <new>
#include <utility>

namespace settings_manager::ipc {

thread_local ZeroedArena::Block ZeroedArena::t_spare;

ZeroedArena::ZeroedArena(std::size_t size)
    : m_block(TakeBlock()), m_arena{m_block.get(), m_block.get(), m_block.get() + size}
{}

ZeroedArena::~ZeroedArena()
{
    Reset();
    t_spare = std::move(m_block);
}

void ZeroedArena::Reset()
{
    std::fill(m_arena.start, m_arena.current, static_cast<unsigned char>(0));
    m_arena.current = m_arena.start;
}

ZeroedArena::Block ZeroedArena::TakeBlock()
{
    Block block = std::exchange(t_spare, nullptr);
    if (block == nullptr)
    {
        block.reset(static_cast<unsigned char*>(std::calloc(limits::WriteArena, 1)));
    }
    return block != nullptr ? std::move(block) : throw std::bad_alloc();
}

}  // namespace settings_manager::ipc
