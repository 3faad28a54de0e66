#pragma once

#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

#include <shared/common/tvo/ipc/proxy/connection_builder.h>
#include <shared/common/tvo/ipc/proxy/proxy.h>

namespace tvoipc {

template <typename I>
using ProxyPtr = std::unique_ptr<I, tvoipc_detail::api_v1::IpcDeleter>;

/// Connects and makes the proxy of an interface over the connection, which it owns from then on.
/// @throws std::runtime_error  when the connection could not be made
template <typename I>
ProxyPtr<I> MakeProxy(const tvoipc_detail::api_v1::SharedResourceProvider& provider,
                      api_v1::IConnector& connector)
{
    using Proxy = tvoipc_detail::idl_traits::Proxy<I>;
    auto release = [&provider](void* memory)
    {
        provider->Allocator().Deallocate(memory);
    };
    std::unique_ptr<void, decltype(release)> memory(provider->Allocator().Allocate(sizeof(Proxy)),
                                                    release);
    if (!memory)
    {
        throw std::bad_alloc();
    }
    tvoipc_detail::api_v1::EndpointHandle endpoint;
    if (connector.Connect(endpoint, provider) != 0)
    {
        throw std::runtime_error("tvoipc::MakeProxy(): error connecting to endpoint.");
    }
    I* proxy = new (memory.get()) Proxy(std::move(endpoint), provider);
    static_cast<void>(memory.release());
    return ProxyPtr<I>(proxy, tvoipc_detail::api_v1::IpcDeleter(provider));
}

}  // namespace tvoipc
