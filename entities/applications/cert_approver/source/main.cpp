#include <shared/common_utils/settings/create_settings_manager.h>

#include "run_cert_approver.h"

int main(int argc, char** argv)
{
    return cert_approver::RunCertApprover(
        argc, argv, &vdi::common_utils::settings::CreateSettingsManagerPersistent);
}
