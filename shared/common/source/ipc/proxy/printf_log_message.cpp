#include <cstdarg>
#include <cstdio>

#include <shared/common/tvo/ipc/proxy/printf_log_message.h>

namespace tvoipc_detail::api_v1 {

int FormatText(char* buffer, std::size_t size, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const int result = std::vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return result;
}

}  // namespace tvoipc_detail::api_v1
