#pragma once

#include <memory>
#include <string_view>

#include <component/app_manager/i_application_manager.h>
#include <component/cert_approver/i_cert_approver.h>
#include <component/cert_approver/tvo_ipc/cert_approver_stub.h>
#include <component/settings_manager/i_settings_manager.h>

namespace cert_approver {

/// How the objects are made that stand for the world outside the process.
struct Creators
{
    /// Connects to the application manager. Null after a failure.
    std::shared_ptr<app_manager::IApplicationManager> (*createApplicationManager)(
        std::string_view appName);

    /// Connects to the terminal's settings.
    /// @returns 0, or a negative result code
    int (*createSettingsManager)(std::shared_ptr<settings_manager::ISettingsManager>& manager);

    /// Makes the service's face to its callers.
    std::unique_ptr<stub::ICertApproverComponent> (*createComponent)(
        std::shared_ptr<ICertApprover> handler);
};

/// The whole life of the process: builds its objects in order, runs the event loop, and takes
/// everything down in reverse order. The application manager hears how far it has come.
/// @returns the exit status: the event loop's result, or 1 after a failure, which is logged
int RunCertApprover(int argc, char** argv, const Creators& creators);

}  // namespace cert_approver
