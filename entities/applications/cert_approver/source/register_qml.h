#pragma once

namespace cert_approver {

/// Makes the dialog's style, the kit and the translations known to Qt. Harmless when repeated.
void RegisterQml();

}  // namespace cert_approver
