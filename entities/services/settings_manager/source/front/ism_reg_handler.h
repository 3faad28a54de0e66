#pragma once

#include <component/settings_manager/tvo_ipc/wz_ism_reg.h>

#include "front/requests.h"
#include "updates/context_table.h"

namespace settings_manager::service {

/// The interface WzISMReg: clients register for updates and subscribe to paths. A context answers
/// to the connection only that has registered it.
class IsmRegHandler final
{
public:
    explicit IsmRegHandler(ContextTable& contexts) noexcept : m_contexts(contexts) {}

    [[nodiscard]] Outcome Serve(const ServiceCall& call);

private:
    Outcome RegCallback(const ServiceCall& call,
                        const vx_settings_manager_WzISMReg_RegCallback_req& request,
                        vx_settings_manager_WzISMReg_RegCallback_res& response);
    Outcome UnregCallback(const ServiceCall& call,
                          const vx_settings_manager_WzISMReg_UnregCallback_req& request,
                          vx_settings_manager_WzISMReg_UnregCallback_res& response);
    Outcome Subscribe(const ServiceCall& call,
                      const vx_settings_manager_WzISMReg_Subscribe_req& request,
                      vx_settings_manager_WzISMReg_Subscribe_res& response);
    Outcome Unsubscribe(const ServiceCall& call,
                        const vx_settings_manager_WzISMReg_Unsubscribe_req& request,
                        vx_settings_manager_WzISMReg_Unsubscribe_res& response);

    /// @throws nvl::Error `NotFound`
    [[nodiscard]] Context& OwnContext(const ServiceCall& call, std::uint64_t cid);

    ContextTable& m_contexts;
};

}  // namespace settings_manager::service
