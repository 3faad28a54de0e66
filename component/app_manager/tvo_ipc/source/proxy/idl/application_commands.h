#pragma once

#include "manager_proxy.h"

namespace tvoipc::idl::stdcpp_v1::vx::app_manager {

/// The wire's methods one to one. Each throws when the call has failed; outputs are unchanged then.
class ApplicationCommands
{
public:
    /// @param handle  the caller's to close; 0xFFFFFFFF when the manager has sent none
    virtual void GetUpdateHandle(const std::vector<unsigned char>& appName,
                                 unsigned int& handle) = 0;
    virtual void GetCommand(const std::vector<unsigned char>& appName,
                            long& command,
                            int& result) = 0;

    virtual ~ApplicationCommands() = default;
};

}  // namespace tvoipc::idl::stdcpp_v1::vx::app_manager

template <>
class tvoipc_detail::idl_traits::Proxy<tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationCommands>
    final : public ManagerProxy<tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationCommands>
{
public:
    using ManagerProxy::ManagerProxy;

    void GetUpdateHandle(const Bytes& appName, unsigned int& handle) override;
    void GetCommand(const Bytes& appName, long& command, int& result) override;
};
