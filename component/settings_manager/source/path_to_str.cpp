#include <exception>

#include <component/nvl/error.h>
#include <component/nvl/path_text.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/path_to_str.h>

namespace settings_manager {

std::string PathToStr(const nvl::Path& path)
{
    try
    {
        auto [text, state] = nvl::ToString(path, meta::GetIdSpecification());
        return state == nvl::IdState::Ok ? std::move(text)
                                         : fmt::format("<path to str fail: state = {}>", state);
    }
    catch (const std::exception&)
    {
        return fmt::format("<path to str fail: '{}'>", nvl::ProcessException().second);
    }
}

}  // namespace settings_manager
