#include "operation.h"

#include <component/logger/formatters.h>
#include <component/nvl/error.h>
#include <component/settings_manager/path_to_str.h>

#include "call.h"

namespace settings_manager::ipc {

std::string ArgumentText(const nvl::Path& path)
{
    return PathToStr(path);
}

std::string ArgumentText(SubscriptionId sid)
{
    return fmt::format("${}", sid);
}

std::string_view WriteResult(int result, std::string& buffer)
{
    buffer = fmt::format(": result = {}", result);
    return buffer;
}

int ReportException(trace::Tracer& tracer)
{
    const auto error = nvl::ProcessException();
    Raise(tracer, tvo::logger::LogLevel::Error);
    tracer.PutResults(": {}", error);
    return error.first;
}

}  // namespace settings_manager::ipc
