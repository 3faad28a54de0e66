#include <component/nvl/error.h>
#include <component/nvl/level_writer.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/path_to_str.h>
#include <component/settings_manager/raw_item.h>

namespace settings_manager::impl {
namespace {

std::string TextOf(const nvl::Path& path)
{
    static const nvl::LevelWriter Writer(meta::GetIdSpecification());
    auto [text, state] = Writer.Write(path);
    if (state != nvl::IdState::Ok)
    {
        throw nvl::Error(plk::codes::InvalidArgument,
                         fmt::format("[RawSetting] Path to str fail: state = {}", state));
    }
    return std::move(text);
}

}  // namespace

RawItem::RawItem(const nvl::Path& nodePath, const Setting& setting)
    : attrib(Raw::FromAttributes(setting.attributes)),
      value(Raw::FromValue(setting.value)),
      path(TextOf(nodePath))
{}

}  // namespace settings_manager::impl
