#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "state.h"

namespace platform::testing {

/// Appends one argument of a call to its journal line.
template <typename T>
void AppendArgument(std::string& line, const T& argument)
{
    if constexpr (std::is_same_v<T, const char*>)
    {
        line += line.empty() ? "" : ", ";
        line += argument == nullptr ? "null" : "\"" + std::string(argument) + "\"";
    }
    else if constexpr (std::is_integral_v<T>)
    {
        line += line.empty() ? "" : ", ";
        line += std::to_string(argument);
    }
}

template <typename Result>
std::int64_t ResultNumber(const Result& result)
{
    if constexpr (std::is_integral_v<Result>)
    {
        return static_cast<std::int64_t>(result);
    }
    else
    {
        return result.has_value() ? 1 : 0;
    }
}

/// How a call fails that was scripted with a code.
template <typename Result>
Result ScriptedResult([[maybe_unused]] int code)
{
    if constexpr (std::is_same_v<Result, int>)
    {
        return code;
    }
    else if constexpr (std::is_same_v<Result, bool>)
    {
        return false;
    }
    else if constexpr (std::is_integral_v<Result>)
    {
        return static_cast<Result>(~Result{0});
    }
    else
    {
        return Result();
    }
}

/// Takes the script that applies to this run, if any.
std::optional<int> TakeScript(CallState& state);

/// Stops before the call while it is blocked.
/// @returns false when the double was reset meanwhile
bool PassBlock(World& world, Lock& lock, Call call);

/// Plays one run of a call: block, script, otherwise `body(world, lock)`.
/// @param arguments  for the journal
template <typename Body, typename... Arguments>
auto Run(Call call, Body body, const Arguments&... arguments)
{
    using Result = std::invoke_result_t<Body, World&, Lock&>;
    World& world = World::Instance();
    Lock lock(world.mutex);
    std::string line;
    (AppendArgument(line, arguments), ...);
    CallState& state = world.Of(call);
    ++state.count;
    world.changed.notify_all();
    const std::optional<int> script =
        PassBlock(world, lock, call) ? TakeScript(state) : XoObjectGone;
    const Result result = script ? ScriptedResult<Result>(*script) : body(world, lock);
    world.journal.push_back({call, std::move(line), ResultNumber(result)});
    return result;
}

/// Runs the test's own function, without the lock.
template <typename Function, typename... Arguments>
int RunOverride(Lock& lock, Function function, Arguments... arguments)
{
    lock.unlock();
    const int result = function(arguments...);
    lock.lock();
    return result;
}

}  // namespace platform::testing
