#pragma once

#include <component/app_manager/tvo_ipc/control_records.h>

namespace tvoctl {

// The words by which people and scripts know what the manager tells.

const char* KindWord(app_manager::control::Kind kind);
const char* StateWord(app_manager::control::State state);

}  // namespace tvoctl
