#pragma once

#include <component/nvl/path.h>

namespace cert_approver {

/// Where the terminal keeps its language, a text such as "en-US".
inline const nvl::Path LanguagePath{"profiles", "locale", "language"};

}  // namespace cert_approver
