#pragma once

#include <cstddef>
#include <cstdint>

#include <shared/common/tvo/ipc/arena/arena.h>
#include <wz/message.h>
#include <wz/transport.h>

// The interface WzISMCbk: updates are fetched and confirmed.

/// A client's end of the interface. Several threads may call through it.
struct vx_settings_manager_WzISMCbk
{
    const WzTvoTransport* transport;
    std::uint16_t riid;
};

struct alignas(8) vx_settings_manager_WzISMCbk_Wait_res
{
    wz_message base;
    std::uint64_t sid;                ///< 0 for none
    tvo::ipc::arena::Reference path;  ///< at or below the subscribed one
    std::uint8_t update;              ///< kinds of `settings_manager::update`
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISMCbk_Wait_res) == 48);
static_assert(offsetof(vx_settings_manager_WzISMCbk_Wait_res, sid) == 24);
static_assert(offsetof(vx_settings_manager_WzISMCbk_Wait_res, path) == 32);
static_assert(offsetof(vx_settings_manager_WzISMCbk_Wait_res, update) == 40);
static_assert(offsetof(vx_settings_manager_WzISMCbk_Wait_res, result) == 44);

/// Answered when there is an update. The path lies in the response's arena.
struct alignas(8) vx_settings_manager_WzISMCbk_Wait_req
{
    using Interface = vx_settings_manager_WzISMCbk;
    using Response = vx_settings_manager_WzISMCbk_Wait_res;
    static constexpr std::uint16_t Mid = 0;
    static constexpr char Name[] = "Wait";

    wz_message base;
    std::uint64_t cid;
};

static_assert(sizeof(vx_settings_manager_WzISMCbk_Wait_req) == 32);
static_assert(offsetof(vx_settings_manager_WzISMCbk_Wait_req, cid) == 24);

struct alignas(8) vx_settings_manager_WzISMCbk_Done_res
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISMCbk_Done_res) == 32);
static_assert(offsetof(vx_settings_manager_WzISMCbk_Done_res, result) == 24);

/// The observer has run; the next update may come.
struct alignas(8) vx_settings_manager_WzISMCbk_Done_req
{
    using Interface = vx_settings_manager_WzISMCbk;
    using Response = vx_settings_manager_WzISMCbk_Done_res;
    static constexpr std::uint16_t Mid = 1;
    static constexpr char Name[] = "Done";

    wz_message base;
    std::uint64_t cid;
    std::uint64_t sid;
};

static_assert(sizeof(vx_settings_manager_WzISMCbk_Done_req) == 40);
static_assert(offsetof(vx_settings_manager_WzISMCbk_Done_req, cid) == 24);
static_assert(offsetof(vx_settings_manager_WzISMCbk_Done_req, sid) == 32);
