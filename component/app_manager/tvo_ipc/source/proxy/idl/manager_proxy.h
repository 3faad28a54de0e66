#pragma once

#include <cstdint>
#include <vector>

#include <component/app_manager/tvo_ipc/limits.h>
#include <shared/common/tvo/ipc/arena/arena.h>
#include <shared/common/tvo/ipc/proxy/proxy.h>
#include <shared/common/tvo/ipc/proxy/sequence.h>

namespace tvoipc_detail::idl_traits {

/// What the proxies of the manager's interfaces share. `I` as for `ProxyBase`.
template <typename I>
class ManagerProxy : public ProxyBase<I>
{
public:
    using ProxyBase<I>::ProxyBase;

protected:
    using Bytes = std::vector<unsigned char>;

    /// Room for a request's texts.
    class Arena final
    {
    public:
        explicit Arena(std::uint32_t size) : m_buffer(size) {}

        /// @throws std::length_error  for a text of more than 128 bytes
        void Pack(const Bytes& text, tvo::ipc::arena::Reference& reference)
        {
            using Byte = stdcpp_v1::Primitive<unsigned char, unsigned char>;
            using Sequence = stdcpp_v1::Sequence<Byte, ::app_manager::limits::Text>;
            Sequence::PackArgument(text, reference, *m_buffer.Get());
        }

        wz_arena* Get()
        {
            return m_buffer.Get();
        }

    private:
        tvo::ipc::arena::Buffer m_buffer;
    };

    /// @throws std::runtime_error  when the call has failed
    template <typename Request>
    typename Request::Response Send(Request& request, Arena& arena) const
    {
        using Response = typename Request::Response;
        std::uint32_t handles = 0;
        if constexpr (requires { Response::Handles; })
        {
            handles = Response::Handles;
        }
        Response response{};
        this->Call(Request::Mid, Request::Name, request, arena.Get(), response, nullptr, handles);
        return response;
    }

    /// A call that has the application's name as its only argument.
    template <typename Request>
    typename Request::Response SendName(const Bytes& appName) const
    {
        Request request{};
        Arena arena(::app_manager::limits::NameArena);
        arena.Pack(appName, request.appName);
        return Send(request, arena);
    }
};

}  // namespace tvoipc_detail::idl_traits
