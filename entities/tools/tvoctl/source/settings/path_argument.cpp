#include "path_argument.h"

#include <utility>

#include <fmt/format.h>

#include <component/nvl/for_each.h>
#include <component/nvl/path_text.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/path_to_str.h>

#include "../failure.h"

namespace tvoctl {
namespace {

using settings_manager::meta::GetIdSpecification;

constexpr const char* RootText = "/";

const char* Reason(nvl::IdState state)
{
    switch (state)
    {
        case nvl::IdState::IndexTooLarge:
        case nvl::IdState::BadNumber:
            return "the index is too large";
        case nvl::IdState::EmptyName:
        case nvl::IdState::EmptyLevel:
            return "a name is empty";
        case nvl::IdState::DigitAtStart:
            return "a name begins with a digit";
        case nvl::IdState::ReservedCharacter:
            return "a name holds a character that none may have, or begins with a digit";
        default:
            return "it cannot be read";
    }
}

[[noreturn]] void Fail(std::string_view text, nvl::IdState state)
{
    throw Failure(ExitStatus::BadUse, fmt::format("'{}' is no path: {}", text, Reason(state)));
}

std::string LevelText(const nvl::Level& level)
{
    const auto* const index = std::get_if<unsigned long>(&level);
    return index != nullptr ? std::to_string(*index) : std::get<std::string>(level);
}

}  // namespace

nvl::Path ParsePath(std::string_view text)
{
    if (text == RootText)
    {
        return nvl::Root;
    }
    auto [path, state] = nvl::FromString(text, GetIdSpecification());
    if (state != nvl::IdState::Ok)
    {
        Fail(text, state);
    }
    return std::move(path);
}

std::string PathText(const nvl::Path& path)
{
    std::string text;
    for (const nvl::Level& level : path)
    {
        text += (text.empty() ? "" : "/") + LevelText(level);
    }
    return path.empty() ? RootText : text;
}

void CheckPaths(const nvl::Path& path, const settings_manager::Setting& tree)
{
    nvl::ForEach(path,
                 tree,
                 [](const nvl::Path& nodePath, const settings_manager::Setting& /*node*/)
                 {
                     const auto state = nvl::ToString(nodePath, GetIdSpecification()).second;
                     if (state != nvl::IdState::Ok)
                     {
                         Fail(PathText(nodePath), state);
                     }
                     return nvl::for_each::Option::Next;
                 });
}

}  // namespace tvoctl
