#pragma once

#include <cstddef>
#include <cstdint>

#include "xo/handle.h"

/// Size in bytes of the name buffers given to `XoCmListen`, terminator included.
inline constexpr std::size_t XoCmNameSize = 1024;

/// Asks the server for a connection to one of its services and waits for its verdict.
/// @param timeoutMs  milliseconds; 0xFFFFFFFF waits without a limit
/// @param handle  the client's connection; XoInvalidHandle on failure
/// @param riid  interface number of the service; 65535 on failure
/// @returns 0; `XoObjectGone` at once when nobody serves the name or the server goes before its
///          verdict; `XoTimedOut`; `XoRefused` or another code when the server refuses
int XoCmConnect(const char* server,
                const char* service,
                std::uint32_t timeoutMs,
                std::uint32_t* handle,
                std::uint32_t* riid);

/// Waits for a connection request to a service that this process has published. The request stays
/// pending until it is accepted, dropped, or its client has gone. Requests never reported come
/// first, in order of arrival (those for published services before others), then the one reported
/// longest ago.
/// @param filter  null
/// @param client  `XoCmNameSize` bytes; a name that no other pending request has
/// @param service  `XoCmNameSize` bytes
/// @returns 0 or `XoTimedOut`; a permanent failure comes after at least 100 ms
int XoCmListen(const char* filter, std::uint32_t timeoutMs, char* client, char* service);

/// Accepts the request last reported under these names.
/// @param riid  interface number told to the client
/// @param listener  endpoint that the connection joins; XoInvalidHandle makes a new one
/// @param handle  the endpoint that was joined
/// @returns 0; `XoObjectGone` when there is no such request any more or no such endpoint;
///          `XoNoResources` when the endpoint is full
int XoCmAccept(const char* client,
               const char* service,
               std::uint32_t riid,
               std::uint32_t listener,
               std::uint32_t* handle);

/// Refuses the request last reported under these names.
/// @returns 0, or `XoObjectGone` when there is none
int XoCmDrop(const char* client, const char* service);
