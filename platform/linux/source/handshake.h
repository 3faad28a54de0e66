#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <wz/message.h>

#include "packet.h"

namespace platform {

/// What a client says first on a new connection to a server's name. The arena holds the service's
/// name and the client's own one behind it, without terminators.
struct ConnectMessage
{
    wz_message header;
    std::uint32_t serviceBytes;
    std::uint32_t clientBytes;
};

static_assert(sizeof(ConnectMessage) == 32);

/// The server's answer.
struct VerdictMessage
{
    wz_message header;
    std::int32_t result;
    std::uint32_t riid;
};

static_assert(sizeof(VerdictMessage) == 32);

inline constexpr std::size_t MaxServiceName = 255;
inline constexpr std::size_t MaxClientName = 64;

struct ConnectRequest
{
    std::string service;
    std::string client;
};

Departure SendConnect(int socket, const ConnectRequest& request);
Departure SendVerdict(int socket, int result, std::uint32_t riid);

/// Reads the parts of a packet that was received whole.
/// @param fault  what is wrong with it when nothing is returned
std::optional<ConnectRequest> ParseConnect(const unsigned char* packet,
                                           std::size_t size,
                                           std::size_t descriptors,
                                           const char*& fault);
std::optional<VerdictMessage> ParseVerdict(const unsigned char* packet,
                                           std::size_t size,
                                           std::size_t descriptors,
                                           const char*& fault);

}  // namespace platform
