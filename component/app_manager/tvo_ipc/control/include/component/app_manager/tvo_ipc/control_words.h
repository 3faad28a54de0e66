#pragma once

#include <component/app_manager/tvo_ipc/control.h>

/// The words by which people, scripts and log lines know the values of the control interface.
namespace app_manager::control {

/// @returns for instance "not-ready"; "?" for a number that is none
[[nodiscard]] const char* EndWord(EndKind kind);

/// @returns for instance "hide"; "?" for a number that is none
[[nodiscard]] const char* CommandWord(Command command);

}  // namespace app_manager::control
