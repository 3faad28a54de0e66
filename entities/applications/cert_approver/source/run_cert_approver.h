#pragma once

namespace cert_approver {

/// The whole life of the process: builds its objects in order, runs the event loop, and takes
/// everything down in reverse order.
/// @returns the exit status: the event loop's result, or 1 after a failure, which is logged
int RunCertApprover(int argc, char** argv);

}  // namespace cert_approver
