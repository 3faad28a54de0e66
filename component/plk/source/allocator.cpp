#include <cstdlib>

#include <component/plk/allocator.h>

namespace zin {

void intrusive_ptr_add_ref(IAllocator* allocator) noexcept
{
    if (allocator != nullptr)
    {
        allocator->AddRef();
    }
}

void intrusive_ptr_release(IAllocator* allocator) noexcept
{
    if (allocator != nullptr)
    {
        allocator->Release();
    }
}

abi_v1_allocator::abi_v1_allocator(IAllocator* allocator) noexcept : m_allocator(allocator)
{
    intrusive_ptr_add_ref(m_allocator);
}

abi_v1_allocator::abi_v1_allocator(const abi_v1_allocator& other) noexcept
    : abi_v1_allocator(other.m_allocator)
{}

abi_v1_allocator::~abi_v1_allocator()
{
    intrusive_ptr_release(m_allocator);
}

void* abi_v1_allocator::allocate(std::size_t bytes) const noexcept
{
    return m_allocator != nullptr ? m_allocator->Allocate(bytes) : std::malloc(bytes);
}

void abi_v1_allocator::free(void* block) const noexcept
{
    if (m_allocator == nullptr)
    {
        std::free(block);
    }
    else if (block != nullptr)
    {
        m_allocator->Free(block);
    }
}

}  // namespace zin
