#pragma once

#include <component/plk/result_code_list.h>

/// Result codes: 0 is success, bit 31 marks a failure, bits 16 to 30 are the facility (0 general,
/// 1 platform), the low 16 bits number the code within its facility. `False` is an answer and no
/// failure. The texts stand in <component/plk/result_code_text.h>.
namespace plk::codes {

#define PLK_DEFINE_RESULT_CODE(name, value, text) \
    inline constexpr int name = static_cast<int>(value);
PLK_GENERAL_RESULT_CODES(PLK_DEFINE_RESULT_CODE)
PLK_PLATFORM_RESULT_CODES(PLK_DEFINE_RESULT_CODE)
#undef PLK_DEFINE_RESULT_CODE

}  // namespace plk::codes
