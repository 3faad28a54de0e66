#include <component/settings_manager/id_specification.h>

namespace settings_manager::meta {

const nvl::IdSpec& GetIdSpecification()
{
    static const nvl::IdSpec Specification{"/\\\"'`%_ ", 0xFFFF};
    return Specification;
}

}  // namespace settings_manager::meta
