#pragma once

#include <component/settings_manager/tvo_ipc/wz_ism_cbk.h>
#include <shared/common/tvo/ipc/arena/arena.h>
#include <shared/common/tvo/service/i_service_loop.h>

#include "front/requests.h"
#include "updates/context_table.h"

namespace settings_manager::service {

/// The interface WzISMCbk: clients wait for updates and say when they are done with one. A wait
/// that cannot be answered is parked.
class IsmCbkHandler final
{
public:
    IsmCbkHandler(tvo::service::IServiceLoop& loop, ContextTable& contexts);

    [[nodiscard]] Outcome Serve(const ServiceCall& call);

    /// Answers the parked waits for which there are events by now.
    void AnswerParked();

private:
    Outcome Wait(const ServiceCall& call,
                 const vx_settings_manager_WzISMCbk_Wait_req& request,
                 vx_settings_manager_WzISMCbk_Wait_res& response);
    Outcome Done(const ServiceCall& call,
                 const vx_settings_manager_WzISMCbk_Done_req& request,
                 vx_settings_manager_WzISMCbk_Done_res& response);

    void Park(const ServiceCall& call, Context& context);
    void AnswerParked(Context& context, const ParkedWait& wait);
    void Cancel(const ParkedWait& wait);

    tvo::service::IServiceLoop& m_loop;
    ContextTable& m_contexts;
    tvo::ipc::arena::Buffer m_arena;
};

}  // namespace settings_manager::service
