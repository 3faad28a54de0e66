#pragma once

#include <cstddef>
#include <cstdint>

#include <shared/common/tvo/ipc/arena/arena.h>
#include <wz/message.h>

// What most methods of the manager's interfaces share.

/// Names the application and says nothing else.
struct alignas(8) vx_app_manager_name_req
{
    wz_message base;
    tvo::ipc::arena::Reference appName;
};

static_assert(sizeof(vx_app_manager_name_req) == 32);
static_assert(offsetof(vx_app_manager_name_req, appName) == 24);

struct alignas(8) vx_app_manager_result_res
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(vx_app_manager_result_res) == 32);
static_assert(offsetof(vx_app_manager_result_res, result) == 24);
