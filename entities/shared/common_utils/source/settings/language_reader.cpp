#include <cstdlib>
#include <utility>

#include <shared/common_utils/settings/language_reader.h>

namespace vdi::common_utils::settings {

LanguageReader::LanguageReader(std::string defaultValue) : m_defaultValue(std::move(defaultValue))
{}

std::string LanguageReader::ReadValue() const
{
    const char* language = std::getenv("TVO_LANGUAGE");
    return language != nullptr && *language != '\0' ? language : m_defaultValue;
}

bool LanguageReader::IsReadOnly() const
{
    return true;
}

void LanguageReader::RegisterCallback(std::function<void()>) {}

void LanguageReader::UnregisterCallback() {}

}  // namespace vdi::common_utils::settings
