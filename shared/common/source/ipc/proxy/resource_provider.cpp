#include <shared/common/tvo/ipc/proxy/resource_provider.h>

namespace tvoipc_detail::api_v1 {

namespace {

template <typename Default, typename Service>
std::shared_ptr<Service> OrDefault(const std::shared_ptr<Service>& given)
{
    return given ? given : std::make_shared<Default>();
}

}  // namespace

ResourceProvider::ResourceProvider(const tvoipc::api_v1::ApplicationSettings& settings)
    : m_allocator(std::make_shared<DefaultAllocator>()),
      m_retcodeConverter(OrDefault<DefaultRetcodeExceptionConverter>(settings.retcodeConverter)),
      m_stringConverter(OrDefault<DefaultStringExceptionConverter>(settings.stringConverter)),
      m_logger(OrDefault<DefaultLogger>(settings.logger)),
      m_eventLoopErrorHandler(
          OrDefault<tvoipc::api_v1::DefaultEventLoopErrorHandler>(settings.eventLoopErrorHandler))
{}

}  // namespace tvoipc_detail::api_v1
