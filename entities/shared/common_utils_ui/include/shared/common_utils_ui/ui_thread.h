#pragma once

namespace vdi::common_utils_ui {

/// True where work for the UI thread may run at once: on the thread of the application object, or
/// anywhere while there is none.
bool IsOnUiThread();

}  // namespace vdi::common_utils_ui
