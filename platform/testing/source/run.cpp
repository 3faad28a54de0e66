#include "run.h"

namespace platform::testing {

std::optional<int> TakeScript(CallState& state)
{
    while (!state.scripts.empty())
    {
        Script& script = state.scripts.front();
        if (script.skip > 0)
        {
            --script.skip;
            return std::nullopt;
        }
        if (script.times == 0)
        {
            state.scripts.pop_front();
            continue;
        }
        if (script.times != Script::Forever)
        {
            --script.times;
        }
        return script.code;
    }
    return std::nullopt;
}

bool PassBlock(World& world, Lock& lock, Call call)
{
    const CallState& state = world.Of(call);
    if (!state.blocked)
    {
        return true;
    }
    // A block has no time limit of its own, and `ExpireWaits` does not lift it.
    for (;;)
    {
        switch (world.Wait(lock, call, WzInfinite, [&] { return !state.blocked; }))
        {
            case Wake::Ready:
                return true;
            case Wake::Abandoned:
                return false;
            case Wake::Expired:
                break;
        }
    }
}

}  // namespace platform::testing
