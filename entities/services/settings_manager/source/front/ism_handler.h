#pragma once

#include <component/settings_manager/tvo_ipc/wz_ism.h>

#include "front/requests.h"
#include "store/store.h"
#include "transfers/transfer_table.h"
#include "updates/context_table.h"

namespace settings_manager::service {

/// The interface WzISM: reads and writes settings, and has each change told.
class IsmHandler final
{
public:
    IsmHandler(Store& store, ContextTable& contexts) noexcept;

    [[nodiscard]] Outcome Serve(const ServiceCall& call);

    [[nodiscard]] TransferTable& Transfers() noexcept
    {
        return m_transfers;
    }

private:
    Outcome Read(const ServiceCall& call,
                 const vx_settings_manager_WzISM_Read_req& request,
                 vx_settings_manager_WzISM_Read_res& response);
    Outcome Write(const ServiceCall& call,
                  const vx_settings_manager_WzISM_Write_req& request,
                  vx_settings_manager_WzISM_Write_res& response);
    Outcome ReadNext(const ServiceCall& call,
                     const vx_settings_manager_WzISM_ReadNext_req& request,
                     vx_settings_manager_WzISM_ReadNext_res& response);
    Outcome WriteNext(const ServiceCall& call,
                      const vx_settings_manager_WzISM_WriteNext_req& request,
                      vx_settings_manager_WzISM_WriteNext_res& response);
    Outcome Cancel(const ServiceCall& call,
                   const vx_settings_manager_WzISM_Cancel_req& request,
                   vx_settings_manager_WzISM_Cancel_res& response);
    Outcome GetAttrib(const ServiceCall& call,
                      const vx_settings_manager_WzISM_GetAttrib_req& request,
                      vx_settings_manager_WzISM_GetAttrib_res& response);
    Outcome SetAttrib(const ServiceCall& call,
                      const vx_settings_manager_WzISM_SetAttrib_req& request,
                      vx_settings_manager_WzISM_SetAttrib_res& response);
    Outcome Delete(const ServiceCall& call,
                   const vx_settings_manager_WzISM_Delete_req& request,
                   vx_settings_manager_WzISM_Delete_res& response);

    Store& m_store;
    ContextTable& m_contexts;
    TransferTable m_transfers;
};

}  // namespace settings_manager::service
