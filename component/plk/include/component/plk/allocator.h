#pragma once

#include <cstddef>
#include <utility>

namespace zin {

/// Memory from elsewhere, shared by counted references. No operation may throw: an exception ends
/// the process. The order of the operations is part of the interface.
class IAllocator
{
public:
    virtual void AddRef() noexcept = 0;
    virtual void Release() noexcept = 0;
    virtual void Reserved1() noexcept = 0;  ///< keeps its place, never called
    /// @returns a block of at least `bytes`, or null
    virtual void* Allocate(std::size_t bytes) noexcept = 0;
    virtual void Reserved2() noexcept = 0;  ///< keeps its place, never called
    virtual void Free(void* block) noexcept = 0;

protected:
    ~IAllocator() = default;
};

void intrusive_ptr_add_ref(IAllocator* allocator) noexcept;
void intrusive_ptr_release(IAllocator* allocator) noexcept;

/// A counted reference to an `IAllocator`; without one, memory comes from `malloc`.
class abi_v1_allocator
{
public:
    abi_v1_allocator() noexcept = default;
    explicit abi_v1_allocator(IAllocator* allocator) noexcept;  ///< takes a reference of its own
    abi_v1_allocator(const abi_v1_allocator& other) noexcept;
    abi_v1_allocator(abi_v1_allocator&& other) noexcept
        : m_allocator(std::exchange(other.m_allocator, nullptr))
    {}
    ~abi_v1_allocator();

    abi_v1_allocator& operator=(abi_v1_allocator other) noexcept
    {
        std::swap(m_allocator, other.m_allocator);
        return *this;
    }

    /// @returns a block, or null when there is no memory
    [[nodiscard]] void* allocate(std::size_t bytes) const noexcept;
    /// Gives a block back; null is allowed.
    void free(void* block) const noexcept;

    [[nodiscard]] IAllocator* get() const noexcept
    {
        return m_allocator;
    }

private:
    IAllocator* m_allocator = nullptr;
};

}  // namespace zin
