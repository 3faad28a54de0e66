#pragma once

#include <memory>

#include <shared/common/tvo/ipc/proxy/event_loop_error_handler.h>
#include <shared/common/tvo/ipc/proxy/exception_converters.h>
#include <shared/common/tvo/ipc/proxy/logger.h>

namespace tvoipc::api_v1 {

/// What a program may replace in the proxy layer. A null service stands for the default one.
struct ApplicationSettings
{
    std::shared_ptr<IRetcodeExceptionConverter> retcodeConverter;
    std::shared_ptr<IStringExceptionConverter> stringConverter;
    std::shared_ptr<ILogger> logger;
    std::shared_ptr<IEventLoopErrorHandler> eventLoopErrorHandler;
};

}  // namespace tvoipc::api_v1
