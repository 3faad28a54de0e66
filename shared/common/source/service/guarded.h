#pragma once

#include <component/logger/logger.h>
#include <component/plk/process_exception.h>

namespace tvo::service {

/// Runs a callback of the service's. What it throws is logged and goes no further.
/// @param what  names the callback in the line
/// @returns false when it has thrown
template <typename Callback>
bool Guarded(const char* what, const Callback& callback) noexcept
{
    try
    {
        callback();
        return true;
    }
    catch (...)
    {
        const auto [code, text] = ::common::utils::ProcessException();
        TVO_LOG_ERROR("ServiceLoop: {} threw exception [{}, {}]", what, code, text);
        return false;
    }
}

}  // namespace tvo::service
