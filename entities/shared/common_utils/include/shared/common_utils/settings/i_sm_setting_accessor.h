#pragma once

#include <shared/common_utils/settings/i_sm_setting_reader.h>
#include <shared/common_utils/settings/i_sm_setting_writer.h>

namespace vdi::common_utils::settings {

/// Reads and writes one setting.
template <class T, class Enable = void>
class ISmSettingAccessor : public ISmSettingReader<T, Enable>, public ISmSettingWriter<T, Enable>
{};

}  // namespace vdi::common_utils::settings
