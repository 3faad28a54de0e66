#include "allocation_counter.h"

#include <cstdlib>
#include <new>

namespace {

thread_local unsigned t_allocations = 0;

}  // namespace

unsigned AllocationsOfThisThread()
{
    return t_allocations;
}

void* operator new(std::size_t size)
{
    ++t_allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
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
