#pragma once

#include <memory>

#include <component/settings_manager/i_settings_manager.h>

namespace cert_approver {

/// Connects to the terminal's settings.
/// @returns 0, or a negative result code
using SettingsManagerCreator =
    int (*)(std::shared_ptr<settings_manager::ISettingsManager>& manager);

/// The whole life of the process: builds its objects in order, runs the event loop, and takes
/// everything down in reverse order.
/// @returns the exit status: the event loop's result, or 1 after a failure, which is logged
int RunCertApprover(int argc, char** argv, SettingsManagerCreator createSettingsManager);

}  // namespace cert_approver
