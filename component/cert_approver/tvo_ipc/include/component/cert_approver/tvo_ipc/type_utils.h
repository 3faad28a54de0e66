#pragma once

#include <component/cert_approver/verdict.h>

/// Conversions of the enumerations that travel as one byte. They answer 0, or "Not found" for a
/// value that the other side does not know: a warning is logged then and the output left alone.
namespace cert_approver::common {

[[nodiscard]] int VerdictToIpc(Verdict verdict, unsigned char& ipcVerdict);
[[nodiscard]] int IpcToVerdict(unsigned char ipcVerdict, Verdict& verdict);
[[nodiscard]] int ModeToIpc(Mode mode, unsigned char& ipcMode);
[[nodiscard]] int IpcToMode(unsigned char ipcMode, Mode& mode);

}  // namespace cert_approver::common
