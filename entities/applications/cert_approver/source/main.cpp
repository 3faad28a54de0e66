#include <component/app_manager/create_application_manager.h>
#include <component/cert_approver/tvo_ipc/cert_approver_stub.h>
#include <shared/common_utils/settings/create_settings_manager.h>

#include "run_cert_approver.h"

int main(int argc, char** argv)
{
    return cert_approver::RunCertApprover(
        argc,
        argv,
        {.createApplicationManager = &app_manager::CreateApplicationManager,
         .createSettingsManager = &vdi::common_utils::settings::CreateSettingsManagerPersistent,
         .createComponent = &cert_approver::stub::CreateCertApproverComponent});
}
