#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include <shared/common/tvo/ipc/proxy/endpoint_handle.h>
#include <shared/common/tvo/ipc/proxy/resource_provider.h>
#include <wz/message.h>
#include <wz/transport.h>

namespace tvoipc_detail::api_v1 {

/// Ends a proxy and hands its memory back to the allocator that it came from.
class IpcDeleter final
{
public:
    IpcDeleter() = default;
    explicit IpcDeleter(SharedResourceProvider provider) : m_provider(std::move(provider)) {}

    template <typename I>
    void operator()(I* proxy) const
    {
        void* memory = dynamic_cast<void*>(proxy);
        proxy->~I();
        m_provider->Allocator().Deallocate(memory);
    }

private:
    SharedResourceProvider m_provider;
};

/// A message and the room for its variable data, in the one or the other direction.
struct Packet
{
    wz_message* message;
    std::uint32_t size;  ///< of the whole message in bytes
    wz_arena* arena;     ///< null for none
};

/// One blocking round trip, with both headers filled in here. The messages' fields and the request
/// arena are the caller's.
/// @param name  of the method, for the exception's text
/// @param handles  how many handles the response brings
/// @throws std::runtime_error  NAME "transport error" or NAME "server error"
void CallMethod(const WzTvoTransport& transport,
                std::uint16_t riid,
                std::uint16_t mid,
                const char* name,
                const Packet& request,
                const Packet& response,
                std::uint32_t handles = 0);

}  // namespace tvoipc_detail::api_v1

namespace tvoipc_detail::idl_traits {

/// What the proxies of all interfaces hold. `I` is the abstract interface, its destructor virtual.
template <typename I>
class ProxyBase : public I
{
public:
    ProxyBase(api_v1::EndpointHandle endpoint, api_v1::SharedResourceProvider provider)
        : m_endpoint(std::move(endpoint)),
          m_riid(m_endpoint.Riid()),
          m_provider(std::move(provider))
    {
        WzTvoTransport_Init(&m_transport, m_endpoint.Handle(), nullptr, 0);
    }

protected:
    /// Fills in the headers and makes the call. Several threads may call at once.
    template <typename Request, typename Response>
    void Call(std::uint16_t mid,
              const char* name,
              Request& request,
              wz_arena* requestArena,
              Response& response,
              wz_arena* responseArena,
              std::uint32_t handles = 0) const
    {
        api_v1::CallMethod(m_transport,
                           m_riid,
                           mid,
                           name,
                           {&request.base, sizeof(Request), requestArena},
                           {&response.base, sizeof(Response), responseArena},
                           handles);
    }

private:
    api_v1::EndpointHandle m_endpoint;
    std::uint16_t m_riid;
    api_v1::SharedResourceProvider m_provider;
    WzTvoTransport m_transport;
};

/// The proxy of one interface; each interface brings its own, derived from `ProxyBase<I>`.
template <typename I>
class Proxy;

}  // namespace tvoipc_detail::idl_traits
