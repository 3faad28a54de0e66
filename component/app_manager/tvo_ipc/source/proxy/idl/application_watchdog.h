#pragma once

#include "manager_proxy.h"

namespace tvoipc::idl::stdcpp_v1::vx::app_manager {

/// The wire's method one to one. Throws when the call has failed; `result` is unchanged then.
class ApplicationWatchdog
{
public:
    virtual void Ping(const std::vector<unsigned char>& appName, int& result) = 0;

    virtual ~ApplicationWatchdog() = default;
};

}  // namespace tvoipc::idl::stdcpp_v1::vx::app_manager

template <>
class tvoipc_detail::idl_traits::Proxy<tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationWatchdog>
    final : public ManagerProxy<tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationWatchdog>
{
public:
    using ManagerProxy::ManagerProxy;

    void Ping(const Bytes& appName, int& result) override;
};
