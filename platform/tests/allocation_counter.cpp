#include "allocation_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> g_allocations = 0;
std::atomic<bool> g_refuses = false;

}  // namespace

namespace platform::tests {

std::size_t Allocations()
{
    return g_allocations;
}

void RefuseMemory()
{
    g_refuses = true;
}

}  // namespace platform::tests

[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++g_allocations;
    if (void* memory = g_refuses ? nullptr : std::malloc(size == 0 ? 1 : size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

// Of their own, since a sanitizer's array forms do not come through the plain ones.
void* operator new[](std::size_t size)
{
    return operator new(size);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}
