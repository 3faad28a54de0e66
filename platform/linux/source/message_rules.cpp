#include "message_rules.h"

#include <algorithm>

namespace platform {

int MeasureOutgoing(MessageRole role,
                    const wz_message* message,
                    const wz_arena* arena,
                    OutgoingSizes& sizes)
{
    if (message == nullptr)
    {
        return XoInvalidArgument;
    }
    sizes.message = MessageBytes(*message);
    if (role == MessageRole::Response)
    {
        sizes.message = std::max(sizes.message, sizeof(wz_message));
    }
    sizes.handles = HandleCount(*message);
    sizes.arena = 0;
    if (arena != nullptr && arena->start != nullptr)
    {
        if (arena->current < arena->start || arena->current > arena->end)
        {
            return XoInvalidArgument;
        }
        sizes.arena = static_cast<std::size_t>(arena->current - arena->start);
    }
    if (sizes.message > MaxMessageBytes || sizes.arena > MaxArenaBytes)
    {
        return XoTooBig;
    }
    const bool valid =
        sizes.message >= sizeof(wz_message) && SlotsFit(sizes.handles, sizes.message);
    return valid ? XoOk : XoInvalidArgument;
}

}  // namespace platform
