#pragma once

#include <memory>
#include <mutex>

#include <shared/common/tvo/ipc/proxy/allocator.h>
#include <shared/common/tvo/ipc/proxy/application_settings.h>

namespace tvoipc_detail::api_v1 {

/// The services of the proxy layer, each of them there. Shared by the proxies of one connection set
/// and not changed once made.
class ResourceProvider final
{
public:
    explicit ResourceProvider(const tvoipc::api_v1::ApplicationSettings& settings);

    IIpcAllocator& Allocator() const
    {
        return *m_allocator;
    }

    tvoipc::api_v1::IRetcodeExceptionConverter& RetcodeConverter() const
    {
        return *m_retcodeConverter;
    }

    tvoipc::api_v1::IStringExceptionConverter& StringConverter() const
    {
        return *m_stringConverter;
    }

    tvoipc::api_v1::ILogger& Logger() const
    {
        return *m_logger;
    }

    tvoipc::api_v1::IEventLoopErrorHandler& EventLoopErrorHandler() const
    {
        return *m_eventLoopErrorHandler;
    }

    /// For what the proxies of one set have to do one after the other.
    std::mutex& Mutex() const
    {
        return m_mutex;
    }

private:
    std::shared_ptr<IIpcAllocator> m_allocator;
    std::shared_ptr<tvoipc::api_v1::IRetcodeExceptionConverter> m_retcodeConverter;
    std::shared_ptr<tvoipc::api_v1::IStringExceptionConverter> m_stringConverter;
    std::shared_ptr<tvoipc::api_v1::ILogger> m_logger;
    std::shared_ptr<tvoipc::api_v1::IEventLoopErrorHandler> m_eventLoopErrorHandler;
    mutable std::mutex m_mutex;
};

using SharedResourceProvider = std::shared_ptr<ResourceProvider>;

}  // namespace tvoipc_detail::api_v1
