#pragma once

namespace platform {

/// Waits the time that a permanent failure takes, so that a loop which goes round at once does not
/// spin.
void PauseAfterFailure();

}  // namespace platform
