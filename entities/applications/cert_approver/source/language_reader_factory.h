#pragma once

#include <functional>
#include <memory>
#include <string>

#include <shared/common_utils/settings/i_sm_setting_reader.h>

namespace cert_approver {

using ILanguageReader = vdi::common_utils::settings::ISmSettingReader<std::string>;

/// Makes a reader of the terminal's language that answers `defaultValue` where nothing is set. Who
/// reads the language for another purpose has another default.
using LanguageReaderFactory =
    std::function<std::unique_ptr<ILanguageReader>(std::string defaultValue)>;

}  // namespace cert_approver
