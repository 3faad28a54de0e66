#include "settings_service.h"

#include <chrono>
#include <utility>

#include <component/settings_manager/tvo_ipc/limits.h>
#include <component/settings_manager/tvo_ipc/service_names.h>

namespace settings_manager::service {
namespace {

constexpr std::chrono::seconds SweepInterval{1};

tvo::service::ServedInterface Interface(const char* name, std::uint16_t riid)
{
    tvo::service::ServedInterface served;
    served.name = name;
    served.interfaceName = name;
    served.riid = riid;
    return served;
}

}  // namespace

SettingsService::SettingsService(std::unique_ptr<tvo::service::IServiceLoop> loop, Store& store)
    : m_ism(store, m_contexts),
      m_ismReg(m_contexts),
      m_ismCbk(*loop, m_contexts),
      m_loop(std::move(loop))
{
    ServeIsm();
    ServeIsmReg();
    ServeIsmCbk();
    m_loop->OnTurnEnd([this] { OnTurnEnd(); });
}

int SettingsService::Run()
{
    return m_loop->Run();
}

void SettingsService::ServeIsm()
{
    auto served = Interface(service_names::Ism, service_names::IsmRiid);
    served.largestRequest = sizeof(vx_settings_manager_WzISM_Write_req);
    served.largestResponse = sizeof(vx_settings_manager_WzISM_Read_res);
    served.requestArena = ipc::limits::WriteArena;
    served.responseArena = ipc::limits::ChunkArena;
    m_loop->Serve(served,
                  {.serve = [this](const ServiceCall& call) { return m_ism.Serve(call); },
                   .admit = {},
                   .connectionEnded =
                       [this](std::uint64_t connection)
                   {
                       m_ism.Transfers().RemoveOf(connection);
                   }});
}

void SettingsService::ServeIsmReg()
{
    auto served = Interface(service_names::IsmReg, service_names::IsmRegRiid);
    served.largestRequest = sizeof(vx_settings_manager_WzISMReg_Subscribe_req);
    served.largestResponse = sizeof(vx_settings_manager_WzISMReg_Subscribe_res);
    served.requestArena = ipc::limits::PathArena;
    m_loop->Serve(served,
                  {.serve = [this](const ServiceCall& call) { return m_ismReg.Serve(call); },
                   .admit = {},
                   .connectionEnded =
                       [this](std::uint64_t connection)
                   {
                       m_contexts.RemoveOf(connection);
                   }});
}

void SettingsService::ServeIsmCbk()
{
    auto served = Interface(service_names::IsmCbk, service_names::IsmCbkRiid);
    served.largestRequest = sizeof(vx_settings_manager_WzISMCbk_Done_req);
    served.largestResponse = sizeof(vx_settings_manager_WzISMCbk_Wait_res);
    served.responseArena = ipc::limits::PathArena;
    m_loop->Serve(served,
                  {.serve = [this](const ServiceCall& call) { return m_ismCbk.Serve(call); },
                   .admit = {},
                   .connectionEnded = {}});
}

void SettingsService::OnTurnEnd()
{
    m_ismCbk.AnswerParked();
    if (m_ism.Transfers().IsEmpty())
    {
        m_sweep.reset();
    }
    else if (m_sweep == nullptr)
    {
        m_sweep = m_loop->Every(
            SweepInterval,
            [this] { m_ism.Transfers().RemoveIdle(std::chrono::steady_clock::now()); });
    }
}

}  // namespace settings_manager::service
