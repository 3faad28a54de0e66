#pragma once

#include <cstddef>

namespace tvoipc_detail::api_v1 {

/// Where the memory of proxies comes from.
class IIpcAllocator
{
public:
    /// @returns memory aligned for any ordinary object, or null
    virtual void* Allocate(std::size_t size) = 0;

    /// Takes back what `Allocate` gave; null is nothing.
    virtual void Deallocate(void* memory) = 0;

    virtual ~IIpcAllocator() = default;
};

class DefaultAllocator final : public IIpcAllocator
{
public:
    void* Allocate(std::size_t size) override;
    void Deallocate(void* memory) override;
};

}  // namespace tvoipc_detail::api_v1
