#include "run.h"

namespace platform::testing {

std::optional<int> TakeScript(CallState& state)
{
    while (!state.scripts.empty())
    {
        Script& script = state.scripts.front();
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
    return !state.blocked ||
           world.Wait(lock, call, WzInfinite, [&] { return !state.blocked; }) == Wake::Ready;
}

}  // namespace platform::testing
