#pragma once

#include <cstddef>
#include <cstdint>

/// One receive point of the entity.
struct TvoEndpointDescription
{
    std::uint16_t index;  ///< the interface number under which requests arrive
    const char* name;     ///< full name inside the entity, "component.Endpoint"
    const char* shortName;
    const char* interfaceName;
};

struct TvoComponentDescription
{
    const char* name;
    const char* type;
    const TvoEndpointDescription* endpoints;
    std::size_t endpointCount;
};

/// What a process consists of, under the names by which others find it. Plain constants; the
/// platform copies what it needs.
struct TvoComponentTree
{
    const char* entity;
    const TvoEndpointDescription* endpoints;  ///< of the entity itself
    std::size_t endpointCount;
    const TvoComponentDescription* components;
    std::size_t componentCount;
};

/// @returns the task's own handle, always the same; it need not be closed
std::uint32_t TvoTaskGetSelf();

/// Gives the process its entity name and its endpoints. To be called before a service is published.
/// @returns 0 or a negative failure code
int TvoTaskSetComponentTree(std::uint32_t self, const TvoComponentTree* tree);

/// Connects the task to itself under the connection id, so that `ServiceLocatorRegister` may take
/// that name. Makes no socket and never blocks.
/// @returns 0 or a negative failure code
int TvoTaskConnectToService(std::uint32_t client, std::uint32_t server, const char* connectionId);

/// Gives the calling process the soft descriptor limit back that it had before the platform raised
/// it. For a child between fork and exec, so that the next program starts as ours did; makes one
/// system call and nothing else.
void TvoTaskRestoreDescriptorLimit();
