#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include <shared/common/tvo/entity/base_component_dispatcher.h>

namespace tvo::entity {

/// Dispatches to a component through the function that belongs to its interface, of the form
/// bool(Component*, riid, request, requestArena, response, responseArena).
template <typename Component,
          typename Request,
          typename Response,
          auto DispatchFunction,
          std::uint32_t RequestArenaSize,
          std::uint32_t ResponseArenaSize>
class ComponentDispatcher final
    : public BaseComponentDispatcher<Request, Response, RequestArenaSize, ResponseArenaSize>
{
    using Base = BaseComponentDispatcher<Request, Response, RequestArenaSize, ResponseArenaSize>;

public:
    /// The parameters of the base, and the component, which is shared.
    /// @throws zin::CheckFailedException  when riid or handle is invalid or the component is null
    ComponentDispatcher(const std::uint16_t& riid,
                        const std::uint32_t& handle,
                        const std::uint32_t& receiveTimeout,
                        std::shared_ptr<Component> component)
        : Base(riid, handle, receiveTimeout), m_component(std::move(component))
    {
        ZIN_CHECK(m_component != nullptr, "");
    }

    /// The thread calls `Dispatch`, so it ends before this part of the object does.
    ~ComponentDispatcher() override
    {
        Base::Stop();
    }

    bool Dispatch(std::uint16_t riid,
                  const wz_message* request,
                  const wz_arena* requestArena,
                  wz_message* response,
                  wz_arena* responseArena) override
    {
        return DispatchFunction(
            m_component.get(), riid, request, requestArena, response, responseArena);
    }

private:
    std::shared_ptr<Component> m_component;
};

}  // namespace tvo::entity
