#pragma once

#include <optional>
#include <type_traits>

#include <platform/testing/platform_double.h>

namespace platform::testing {

/// What the test has in store for one run of a call.
struct Turn
{
    std::optional<int> script;
    std::any replacement;
};

/// Counts the run and waits while the call is blocked.
Turn Enter(Call call);

void Leave(Call call, Record record);

/// Appends one argument of a call to its line in the journal.
template <typename T>
void Append(std::string& line, const T& argument)
{
    const std::string comma = line.empty() ? "" : ", ";
    if constexpr (std::is_same_v<T, const char*>)
    {
        line += comma + (argument == nullptr ? "null" : "\"" + std::string(argument) + "\"");
    }
    else if constexpr (std::is_integral_v<T>)
    {
        line += comma + std::to_string(argument);
    }
}

/// The result of a run that was scripted with a code.
template <typename Result>
Result ScriptedResult([[maybe_unused]] int code)
{
    if constexpr (std::is_same_v<Result, int>)
    {
        return code;
    }
    else if constexpr (std::is_integral_v<Result> && !std::is_same_v<Result, bool>)
    {
        return static_cast<Result>(~Result{0});
    }
    else
    {
        return Result();
    }
}

/// Plays one run of a call: the script, or the test's own function, or the port's.
template <typename Result, typename... Arguments>
Result Run(Call call, Result (*real)(Arguments...), std::type_identity_t<Arguments>... arguments)
{
    std::string line;
    (Append(line, arguments), ...);
    Turn turn = Enter(call);
    const auto play = [&]() -> Result
    {
        using Function = std::function<Result(Arguments...)>;
        return turn.replacement.has_value()
                   ? std::any_cast<Function&>(turn.replacement)(arguments...)
                   : real(arguments...);
    };
    const Result result = turn.script ? ScriptedResult<Result>(*turn.script) : play();
    if constexpr (std::is_integral_v<Result>)
    {
        Leave(call, {std::move(line), static_cast<std::int64_t>(result)});
    }
    else
    {
        Leave(call, {std::move(line), result.has_value()});
    }
    return result;
}

}  // namespace platform::testing
