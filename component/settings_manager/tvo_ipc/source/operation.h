#pragma once

#include <exception>
#include <string>
#include <string_view>

#include <component/logger/tracer.h>
#include <component/nvl/path.h>
#include <component/settings_manager/i_settings_manager.h>

namespace settings_manager::ipc {

/// What stands between the brackets of an operation's lines.
std::string ArgumentText(const nvl::Path& path);
std::string ArgumentText(SubscriptionId sid);

std::string_view WriteResult(int result, std::string& buffer);

/// Notes the exception in flight in the tracer.
/// @returns its code
int ReportException(trace::Tracer& tracer);

/// The frame of every operation: one line when it starts, one with the result when it ends, and no
/// exception that gets out.
/// @param argument  a path or a subscription; what is worked with is its text
/// @param work      gets the tracer and that text and returns the operation's result
template <class Argument, class Work>
int RunOperation(std::string_view prefix,
                 std::string_view name,
                 tvo::logger::LogLevel level,
                 const Argument& argument,
                 Work work)
{
    int result = 0;
    trace::Tracer tracer(prefix,
                         name,
                         level,
                         [&result](std::string& buffer) { return WriteResult(result, buffer); });
    try
    {
        const std::string text = ArgumentText(argument);
        tracer.Arguments() = text;
        tracer.LogImpl(level, "");
        result = work(tracer, text);
    }
    catch (const std::exception&)
    {
        result = ReportException(tracer);
    }
    return result;
}

}  // namespace settings_manager::ipc
