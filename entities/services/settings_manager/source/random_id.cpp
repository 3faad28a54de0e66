#include "random_id.h"

#include <component/nvl/error.h>
#include <tvo/random.h>

namespace settings_manager::service {

std::uint64_t MakeRandomId()
{
    std::uint64_t id = 0;
    while (id == 0)
    {
        if (TvoRandomGenerate(sizeof(id), &id) != 0)
        {
            throw nvl::Error(plk::codes::InsufficientResources, "no random bytes");
        }
    }
    return id;
}

}  // namespace settings_manager::service
