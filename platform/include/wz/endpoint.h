#pragma once

#include <cstdint>

/// Makes an endpoint without a name: the clients that `XoCmAccept` lets join are its only ones. To
/// be closed with `XoHandleClose`.
/// @param handle  XoInvalidHandle on failure
/// @returns 0 or `XoNoResources`
int WzTvoEndpointCreate(std::uint32_t* handle);

/// Fetches the connections that have ended since the last time, whoever has ended them, oldest
/// first. Ends are kept from the moment on at which the endpoint is added to a wait set; those that
/// nobody has noticed yet are noticed while receiving.
/// @param connections  ids as in `WzTvoPeer`
/// @returns 0, also for none, or `XoObjectGone` for no such endpoint
int WzTvoEndpointGetEnded(std::uint32_t handle,
                          unsigned long count,
                          std::uint64_t* connections,
                          unsigned long* received);
