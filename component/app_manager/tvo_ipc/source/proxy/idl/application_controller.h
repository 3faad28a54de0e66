#pragma once

#include "manager_proxy.h"

namespace tvoipc::idl::stdcpp_v1::vx::app_manager {

/// The wire's methods one to one. Each throws when the call has failed; `result` is unchanged then.
class ApplicationController
{
public:
    virtual void StartApplication(const std::vector<unsigned char>& appName, int& result) = 0;
    virtual void ReadyToInitialize(const std::vector<unsigned char>& appName, int& result) = 0;
    virtual void ReadyToShowUI(const std::vector<unsigned char>& appName, int& result) = 0;
    virtual void FinishWithInternalError(const std::vector<unsigned char>& appName,
                                         const std::vector<unsigned char>& error,
                                         const std::vector<unsigned char>& description,
                                         int& result) = 0;
    virtual void StateChanged(const std::vector<unsigned char>& appName,
                              long state,
                              int& result) = 0;

    virtual ~ApplicationController() = default;
};

}  // namespace tvoipc::idl::stdcpp_v1::vx::app_manager

template <>
class tvoipc_detail::idl_traits::Proxy<
    tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationController>
    final : public ManagerProxy<tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationController>
{
public:
    using ManagerProxy::ManagerProxy;

    void StartApplication(const Bytes& appName, int& result) override;
    void ReadyToInitialize(const Bytes& appName, int& result) override;
    void ReadyToShowUI(const Bytes& appName, int& result) override;
    void FinishWithInternalError(const Bytes& appName,
                                 const Bytes& error,
                                 const Bytes& description,
                                 int& result) override;
    void StateChanged(const Bytes& appName, long state, int& result) override;
};
