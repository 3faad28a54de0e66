#pragma once

#include <cstdint>
#include <functional>
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

/// Plays one run of a call: block, script, override, otherwise `body(world, lock)`.
template <typename Result, typename... Arguments, typename Body>
Result Run(Call call,
           std::function<Result(Arguments...)> Overrides::*member,
           Body body,
           std::type_identity_t<Arguments>... arguments)
{
    World& world = World::Instance();
    Lock lock(world.mutex);
    std::string line;
    (AppendArgument(line, arguments), ...);
    CallState& state = world.Of(call);
    ++state.count;
    world.changed.notify_all();
    std::optional<int> script = PassBlock(world, lock, call) ? TakeScript(state) : XoObjectGone;
    const std::function<Result(Arguments...)> replacement = world.overrides.*member;

    if constexpr (std::is_void_v<Result>)
    {
        if (!script && replacement)
        {
            lock.unlock();
            replacement(arguments...);
            lock.lock();
        }
        else if (!script)
        {
            body(world, lock);
        }
        world.Note(call, std::move(line), 0);
    }
    else
    {
        Result result{};
        if (script)
        {
            result = ScriptedResult<Result>(*script);
        }
        else if (replacement)
        {
            lock.unlock();
            result = replacement(arguments...);
            lock.lock();
        }
        else
        {
            result = body(world, lock);
        }
        world.Note(call, std::move(line), ResultNumber(result));
        return result;
    }
}

}  // namespace platform::testing
