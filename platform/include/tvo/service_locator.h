#pragma once

#include <cstdint>

/// Makes an endpoint, a place where requests are received, and binds it to a static connection
/// name. The second and third argument are unused: pass null and 0.
/// @param identifier  to be given to `ServiceLocatorUnregister`; 0 on failure
/// @returns the endpoint's handle, or all ones, also when another living process holds the name
std::uint32_t ServiceLocatorRegister(const char* connectionId,
                                     const void* options,
                                     std::uint32_t optionsSize,
                                     std::uint64_t* identifier);

/// Gives the name back and closes the endpoint.
void ServiceLocatorUnregister(std::uint64_t identifier);

/// Connects to the endpoint that is bound to the name; no accept is needed there.
/// @returns the client's connection, or all ones
std::uint32_t ServiceLocatorConnect(const char* connectionId);

/// @param endpoint  full endpoint name, for instance "certApprover.CertApprover"
/// @returns the interface number of an endpoint of the connected server, or 65535
std::uint16_t ServiceLocatorGetRiid(std::uint32_t connection, const char* endpoint);
