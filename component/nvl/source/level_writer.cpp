#include <array>
#include <charconv>
#include <system_error>

#include <component/nvl/level_writer.h>

namespace nvl {

IdState LevelWriter::WriteIndex(unsigned long index, std::string& text) const
{
    if (const IdState state = m_rules.CheckIndex(index); state != IdState::Ok)
    {
        return state;
    }
    std::array<char, LongestIndex> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), index);
    if (result.ec != std::errc())
    {
        return IdState::BadNumber;
    }
    text.append(digits.data(), result.ptr);
    text += m_rules.Separator();
    return IdState::Ok;
}

IdState LevelWriter::WriteName(std::string_view name, std::string& text) const
{
    if (name.empty())
    {
        return IdState::EmptyName;
    }
    if (aux::IsDigit(name.front()))
    {
        return IdState::DigitAtStart;
    }
    if (const IdState state = m_rules.CheckCharacters(name); state != IdState::Ok)
    {
        return state;
    }
    text += name;
    text += m_rules.Separator();
    return IdState::Ok;
}

}  // namespace nvl
