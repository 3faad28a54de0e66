#pragma once

namespace cert_approver {

/// Gives the process its entity name and its endpoints, and connects it to itself, so that it may
/// register its service.
/// @throws zin::CheckResultFailedException  the platform refuses
void PublishEntity();

}  // namespace cert_approver
