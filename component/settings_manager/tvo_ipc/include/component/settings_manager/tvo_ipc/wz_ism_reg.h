#pragma once

#include <cstddef>
#include <cstdint>

#include <shared/common/tvo/ipc/arena/arena.h>
#include <wz/message.h>
#include <wz/transport.h>

// The interface WzISMReg: a process registers for updates and subscribes to paths. `cid` names what
// it has registered, `sid` a subscription there.

/// A client's end of the interface. Several threads may call through it.
struct vx_settings_manager_WzISMReg
{
    const WzTvoTransport* transport;
    std::uint16_t riid;
};

struct alignas(8) vx_settings_manager_WzISMReg_RegCallback_res
{
    wz_message base;
    std::uint64_t cid;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISMReg_RegCallback_res) == 40);
static_assert(offsetof(vx_settings_manager_WzISMReg_RegCallback_res, cid) == 24);
static_assert(offsetof(vx_settings_manager_WzISMReg_RegCallback_res, result) == 32);

struct alignas(8) vx_settings_manager_WzISMReg_RegCallback_req
{
    using Interface = vx_settings_manager_WzISMReg;
    using Response = vx_settings_manager_WzISMReg_RegCallback_res;
    static constexpr std::uint16_t Mid = 0;
    static constexpr char Name[] = "RegCallback";

    wz_message base;
    tvo::ipc::arena::Reference name;  ///< of the callback channel
};

static_assert(sizeof(vx_settings_manager_WzISMReg_RegCallback_req) == 32);
static_assert(offsetof(vx_settings_manager_WzISMReg_RegCallback_req, name) == 24);

struct alignas(8) vx_settings_manager_WzISMReg_UnregCallback_res
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISMReg_UnregCallback_res) == 32);
static_assert(offsetof(vx_settings_manager_WzISMReg_UnregCallback_res, result) == 24);

struct alignas(8) vx_settings_manager_WzISMReg_UnregCallback_req
{
    using Interface = vx_settings_manager_WzISMReg;
    using Response = vx_settings_manager_WzISMReg_UnregCallback_res;
    static constexpr std::uint16_t Mid = 1;
    static constexpr char Name[] = "UnregCallback";

    wz_message base;
    std::uint64_t cid;
};

static_assert(sizeof(vx_settings_manager_WzISMReg_UnregCallback_req) == 32);
static_assert(offsetof(vx_settings_manager_WzISMReg_UnregCallback_req, cid) == 24);

struct alignas(8) vx_settings_manager_WzISMReg_Subscribe_res
{
    wz_message base;
    std::uint64_t sid;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISMReg_Subscribe_res) == 40);
static_assert(offsetof(vx_settings_manager_WzISMReg_Subscribe_res, sid) == 24);
static_assert(offsetof(vx_settings_manager_WzISMReg_Subscribe_res, result) == 32);

struct alignas(8) vx_settings_manager_WzISMReg_Subscribe_req
{
    using Interface = vx_settings_manager_WzISMReg;
    using Response = vx_settings_manager_WzISMReg_Subscribe_res;
    static constexpr std::uint16_t Mid = 2;
    static constexpr char Name[] = "Subscribe";

    wz_message base;
    std::uint64_t cid;
    tvo::ipc::arena::Reference path;
};

static_assert(sizeof(vx_settings_manager_WzISMReg_Subscribe_req) == 40);
static_assert(offsetof(vx_settings_manager_WzISMReg_Subscribe_req, cid) == 24);
static_assert(offsetof(vx_settings_manager_WzISMReg_Subscribe_req, path) == 32);

struct alignas(8) vx_settings_manager_WzISMReg_Unsubscribe_res
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISMReg_Unsubscribe_res) == 32);
static_assert(offsetof(vx_settings_manager_WzISMReg_Unsubscribe_res, result) == 24);

struct alignas(8) vx_settings_manager_WzISMReg_Unsubscribe_req
{
    using Interface = vx_settings_manager_WzISMReg;
    using Response = vx_settings_manager_WzISMReg_Unsubscribe_res;
    static constexpr std::uint16_t Mid = 3;
    static constexpr char Name[] = "Unsubscribe";

    wz_message base;
    std::uint64_t cid;
    std::uint64_t sid;
};

static_assert(sizeof(vx_settings_manager_WzISMReg_Unsubscribe_req) == 40);
static_assert(offsetof(vx_settings_manager_WzISMReg_Unsubscribe_req, cid) == 24);
static_assert(offsetof(vx_settings_manager_WzISMReg_Unsubscribe_req, sid) == 32);
