#pragma once

#include <cstdint>

/// The names under which the approval service is found, for its server and its clients alike.
namespace cert_approver::service_names {

inline constexpr char Entity[] = "vx.vdi.CertApprover";

inline constexpr char Component[] = "certApprover";
inline constexpr char ComponentType[] = "vx.cert_approver.CertApprover";

/// The endpoint inside the entity, and the interface that it serves.
inline constexpr char Endpoint[] = "certApprover.CertApprover";
inline constexpr char EndpointShortName[] = "CertApprover";
inline constexpr char EndpointInterface[] = "vx.cert_approver.CertApprover";
inline constexpr std::uint16_t Riid = 1;

/// What is published and looked for: component type and endpoint.
inline constexpr char PublishedInterface[] = "vx.cert_approver.CertApprover.CertApprover";
inline constexpr char ConnectionId[] = "cert_approver_id";

/// The entity's second component, a client.
inline constexpr char WaylandClient[] = "waylandClient";
inline constexpr char WaylandClientType[] = "vx.WaylandClient";

}  // namespace cert_approver::service_names
