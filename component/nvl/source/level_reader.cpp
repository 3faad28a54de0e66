#include <algorithm>
#include <charconv>
#include <system_error>

#include <component/nvl/level_reader.h>

namespace nvl {

IdState LevelReader::ReadIndex(std::string_view digits, unsigned long& index) const noexcept
{
    if (!std::all_of(digits.begin(), digits.end(), aux::IsDigit))
    {
        return IdState::ReservedCharacter;
    }
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    if (result.ec != std::errc())
    {
        return IdState::BadNumber;
    }
    return m_rules.CheckIndex(index);
}

IdState LevelReader::CheckName(std::string_view name) const noexcept
{
    return name.empty() ? IdState::EmptyLevel : m_rules.CheckCharacters(name);
}

}  // namespace nvl
