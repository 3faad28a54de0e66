#pragma once

#include <cstddef>
#include <cstdint>

#include <shared/common/tvo/ipc/arena/arena.h>
#include <wz/message.h>
#include <wz/transport.h>

// The interface WzISM: settings are read, written and deleted. Each request names its method and
// its response. `result` is a result code; a reply whose failed bit is set has none.
//
// A tree travels as nodes. `count` is their number in the whole transfer; what does not go with the
// first message follows in `ReadNext` or `WriteNext` under the service's `token`.

/// A client's end of the interface. Several threads may call through it.
struct vx_settings_manager_WzISM
{
    const WzTvoTransport* transport;
    std::uint16_t riid;
};

/// One node in the arena, where `nodes` refers to an array of them: a raw item's blocks.
struct vx_settings_manager_Types_WzNode
{
    tvo::ipc::arena::Reference path;
    tvo::ipc::arena::Reference value;
    tvo::ipc::arena::Reference attrib;
};

static_assert(sizeof(vx_settings_manager_Types_WzNode) == 24);
static_assert(offsetof(vx_settings_manager_Types_WzNode, value) == 8);
static_assert(offsetof(vx_settings_manager_Types_WzNode, attrib) == 16);

inline constexpr std::uint8_t vx_settings_manager_WzISM_mode_create = 1;
inline constexpr std::uint8_t vx_settings_manager_WzISM_mode_set_value = 2;
inline constexpr std::uint8_t vx_settings_manager_WzISM_mode_set_setting = 6;
inline constexpr std::uint8_t vx_settings_manager_WzISM_mode_read = 0x16;

struct alignas(8) vx_settings_manager_WzISM_Read_res
{
    wz_message base;
    std::uint64_t count;
    tvo::ipc::arena::Reference nodes;
    std::uint64_t token;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISM_Read_res) == 56);
static_assert(offsetof(vx_settings_manager_WzISM_Read_res, count) == 24);
static_assert(offsetof(vx_settings_manager_WzISM_Read_res, nodes) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_Read_res, token) == 40);
static_assert(offsetof(vx_settings_manager_WzISM_Read_res, result) == 48);

struct alignas(8) vx_settings_manager_WzISM_Read_req
{
    using Interface = vx_settings_manager_WzISM;
    using Response = vx_settings_manager_WzISM_Read_res;
    static constexpr std::uint16_t Mid = 0;
    static constexpr char Name[] = "Read";

    wz_message base;
    tvo::ipc::arena::Reference path;
    std::uint8_t mode;
};

static_assert(sizeof(vx_settings_manager_WzISM_Read_req) == 40);
static_assert(offsetof(vx_settings_manager_WzISM_Read_req, path) == 24);
static_assert(offsetof(vx_settings_manager_WzISM_Read_req, mode) == 32);

struct alignas(8) vx_settings_manager_WzISM_Write_res
{
    wz_message base;
    std::uint64_t token;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISM_Write_res) == 40);
static_assert(offsetof(vx_settings_manager_WzISM_Write_res, token) == 24);
static_assert(offsetof(vx_settings_manager_WzISM_Write_res, result) == 32);

struct alignas(8) vx_settings_manager_WzISM_Write_req
{
    using Interface = vx_settings_manager_WzISM;
    using Response = vx_settings_manager_WzISM_Write_res;
    static constexpr std::uint16_t Mid = 1;
    static constexpr char Name[] = "Write";

    wz_message base;
    tvo::ipc::arena::Reference path;
    std::uint8_t mode;
    std::uint64_t count;
    tvo::ipc::arena::Reference nodes;
};

static_assert(sizeof(vx_settings_manager_WzISM_Write_req) == 56);
static_assert(offsetof(vx_settings_manager_WzISM_Write_req, path) == 24);
static_assert(offsetof(vx_settings_manager_WzISM_Write_req, mode) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_Write_req, count) == 40);
static_assert(offsetof(vx_settings_manager_WzISM_Write_req, nodes) == 48);

struct alignas(8) vx_settings_manager_WzISM_ReadNext_res
{
    wz_message base;
    tvo::ipc::arena::Reference nodes;
    std::uint8_t last;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISM_ReadNext_res) == 40);
static_assert(offsetof(vx_settings_manager_WzISM_ReadNext_res, nodes) == 24);
static_assert(offsetof(vx_settings_manager_WzISM_ReadNext_res, last) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_ReadNext_res, result) == 36);

struct alignas(8) vx_settings_manager_WzISM_ReadNext_req
{
    using Interface = vx_settings_manager_WzISM;
    using Response = vx_settings_manager_WzISM_ReadNext_res;
    static constexpr std::uint16_t Mid = 2;
    static constexpr char Name[] = "ReadNext";

    wz_message base;
    std::uint64_t token;
};

static_assert(sizeof(vx_settings_manager_WzISM_ReadNext_req) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_ReadNext_req, token) == 24);

struct alignas(8) vx_settings_manager_WzISM_WriteNext_res
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISM_WriteNext_res) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_WriteNext_res, result) == 24);

struct alignas(8) vx_settings_manager_WzISM_WriteNext_req
{
    using Interface = vx_settings_manager_WzISM;
    using Response = vx_settings_manager_WzISM_WriteNext_res;
    static constexpr std::uint16_t Mid = 3;
    static constexpr char Name[] = "WriteNext";

    wz_message base;
    std::uint64_t token;
    tvo::ipc::arena::Reference nodes;
    std::uint8_t last;
};

static_assert(sizeof(vx_settings_manager_WzISM_WriteNext_req) == 48);
static_assert(offsetof(vx_settings_manager_WzISM_WriteNext_req, token) == 24);
static_assert(offsetof(vx_settings_manager_WzISM_WriteNext_req, nodes) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_WriteNext_req, last) == 40);

struct alignas(8) vx_settings_manager_WzISM_Cancel_res
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISM_Cancel_res) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_Cancel_res, result) == 24);

/// Ends a transfer that is not complete; nothing of a write stays.
struct alignas(8) vx_settings_manager_WzISM_Cancel_req
{
    using Interface = vx_settings_manager_WzISM;
    using Response = vx_settings_manager_WzISM_Cancel_res;
    static constexpr std::uint16_t Mid = 4;
    static constexpr char Name[] = "Cancel";

    wz_message base;
    std::uint64_t token;
};

static_assert(sizeof(vx_settings_manager_WzISM_Cancel_req) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_Cancel_req, token) == 24);

struct alignas(8) vx_settings_manager_WzISM_GetAttrib_res
{
    wz_message base;
    std::uint8_t attrib;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISM_GetAttrib_res) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_GetAttrib_res, attrib) == 24);
static_assert(offsetof(vx_settings_manager_WzISM_GetAttrib_res, result) == 28);

struct alignas(8) vx_settings_manager_WzISM_GetAttrib_req
{
    using Interface = vx_settings_manager_WzISM;
    using Response = vx_settings_manager_WzISM_GetAttrib_res;
    static constexpr std::uint16_t Mid = 5;
    static constexpr char Name[] = "GetAttrib";

    wz_message base;
    tvo::ipc::arena::Reference path;
};

static_assert(sizeof(vx_settings_manager_WzISM_GetAttrib_req) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_GetAttrib_req, path) == 24);

struct alignas(8) vx_settings_manager_WzISM_SetAttrib_res
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISM_SetAttrib_res) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_SetAttrib_res, result) == 24);

struct alignas(8) vx_settings_manager_WzISM_SetAttrib_req
{
    using Interface = vx_settings_manager_WzISM;
    using Response = vx_settings_manager_WzISM_SetAttrib_res;
    static constexpr std::uint16_t Mid = 6;
    static constexpr char Name[] = "SetAttrib";

    wz_message base;
    tvo::ipc::arena::Reference path;
    std::uint8_t attrib;
};

static_assert(sizeof(vx_settings_manager_WzISM_SetAttrib_req) == 40);
static_assert(offsetof(vx_settings_manager_WzISM_SetAttrib_req, path) == 24);
static_assert(offsetof(vx_settings_manager_WzISM_SetAttrib_req, attrib) == 32);

struct alignas(8) vx_settings_manager_WzISM_Delete_res
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(vx_settings_manager_WzISM_Delete_res) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_Delete_res, result) == 24);

struct alignas(8) vx_settings_manager_WzISM_Delete_req
{
    using Interface = vx_settings_manager_WzISM;
    using Response = vx_settings_manager_WzISM_Delete_res;
    static constexpr std::uint16_t Mid = 7;
    static constexpr char Name[] = "Delete";

    wz_message base;
    tvo::ipc::arena::Reference path;
};

static_assert(sizeof(vx_settings_manager_WzISM_Delete_req) == 32);
static_assert(offsetof(vx_settings_manager_WzISM_Delete_req, path) == 24);
