#pragma once

#include <component/app_manager/tvo_ipc/common_records.h>

// The interface ApplicationCommands: an application asks for the waiting end of an event object,
// which tells it that its command has changed, and for that command.

struct alignas(8) vx_app_manager_ApplicationCommands_GetUpdateHandle_res
{
    static constexpr std::uint32_t Handles = 1;

    wz_message base;
    wz_handle_slot handle;
};

static_assert(sizeof(vx_app_manager_ApplicationCommands_GetUpdateHandle_res) == 40);
static_assert(offsetof(vx_app_manager_ApplicationCommands_GetUpdateHandle_res, handle) == 24);

struct vx_app_manager_ApplicationCommands_GetUpdateHandle_req : vx_app_manager_name_req
{
    using Response = vx_app_manager_ApplicationCommands_GetUpdateHandle_res;
    static constexpr std::uint16_t Mid = 0;
    static constexpr char Name[] = "vx_app_manager_ApplicationCommands_GetUpdateHandle";
};

struct alignas(8) vx_app_manager_ApplicationCommands_GetCommand_res
{
    wz_message base;
    std::int64_t command;
    std::int32_t result;
};

static_assert(sizeof(vx_app_manager_ApplicationCommands_GetCommand_res) == 40);
static_assert(offsetof(vx_app_manager_ApplicationCommands_GetCommand_res, command) == 24);
static_assert(offsetof(vx_app_manager_ApplicationCommands_GetCommand_res, result) == 32);

struct vx_app_manager_ApplicationCommands_GetCommand_req : vx_app_manager_name_req
{
    using Response = vx_app_manager_ApplicationCommands_GetCommand_res;
    static constexpr std::uint16_t Mid = 1;
    static constexpr char Name[] = "vx_app_manager_ApplicationCommands_GetCommand";
};
