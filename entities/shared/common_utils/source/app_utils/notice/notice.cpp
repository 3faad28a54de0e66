#include <cstdint>
#include <utility>

#include <fmt/format.h>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/result_codes.h>
#include <shared/common_utils/app_utils/notice/notice.h>

namespace common_utils::app_utils::notice {

namespace {

constexpr unsigned long Infinite = 0xFFFFFFFFUL;

std::uint32_t Hex(int systemResult)
{
    return static_cast<std::uint32_t>(systemResult);
}

int ToResultCode(int systemResult)
{
    switch (systemResult)
    {
        case XoOk:
            return plk::codes::Ok;
        case XoTimedOut:
            return plk::codes::OperationTimeout;
        case XoObjectGone:
            return plk::codes::NotFound;
        default:
            return plk::codes::UnspecifiedError;
    }
}

}  // namespace

Notice::Notice(std::shared_ptr<INoticeApi> api) : m_api(std::move(api))
{
    ZIN_CHECK(m_api, "Notice api is nullptr");
    const int result = m_api->XoNoticeCreate(&m_notice);
    ZIN_CHECK(result == XoOk,
              fmt::format("Notice: failed to create notice 0x{:x}", Hex(result)).c_str());
}

Notice::~Notice()
{
    const int result = m_api->XoNoticeRelease(m_notice);
    TVO_LOG_DEBUG("XoNoticeRelease result 0x{:x}", Hex(result));
}

int Notice::SubscribeToObject(const unsigned int& handle, unsigned int mask, unsigned long id) const
{
    const int result = m_api->XoNoticeSubscribeToObject(m_notice, handle, mask, id);
    TVO_LOG_DEBUG("XoNoticeSubscribeToObject result: 0x{:x}", Hex(result));
    return ToResultCode(result);
}

int Notice::WaitForEvents(const std::chrono::milliseconds& timeout,
                          unsigned long count,
                          std::vector<EventDesc>& events) const
{
    if (timeout < std::chrono::milliseconds::zero())
    {
        TVO_LOG_ERROR("Notice: WaitForEvents: failed to wait for events: time isn't valid - {}",
                      timeout.count());
        return plk::codes::InvalidArgument;
    }
    return WaitForEvents(static_cast<unsigned long>(timeout.count()), count, events);
}

int Notice::WaitEvents(unsigned long count, std::vector<EventDesc>& events) const
{
    return WaitForEvents(Infinite, count, events);
}

int Notice::UnsubscribeFromObject(const unsigned int& handle) const
{
    const int result = m_api->XoNoticeUnsubscribeFromObject(m_notice, handle);
    TVO_LOG_DEBUG("XoNoticeUnsubscribeFromObject result: 0x{:x}", Hex(result));
    return ToResultCode(result);
}

int Notice::UnsubscribeFromEvent(unsigned long id) const
{
    const int result = m_api->XoNoticeUnsubscribeFromEvent(m_notice, id);
    TVO_LOG_DEBUG("XoNoticeUnsubscribeFromEvent result: 0x{:x}", Hex(result));
    return ToResultCode(result);
}

int Notice::DropAndWake() const
{
    const int result = m_api->XoNoticeDropAndWake(m_notice);
    TVO_LOG_DEBUG("XoNoticeDropAndWake result: 0x{:x}", Hex(result));
    return ToResultCode(result);
}

int Notice::SetObjectEvent(const unsigned int& handle, unsigned int mask) const
{
    const int result = m_api->XoNoticeSetObjectEvent(handle, mask);
    TVO_LOG_DEBUG("XoNoticeSetObjectEvent result: 0x{:x}", Hex(result));
    return ToResultCode(result);
}

int Notice::WaitForEvents(unsigned long timeoutMs,
                          unsigned long count,
                          std::vector<EventDesc>& events) const
{
    std::vector<EventDesc> arrived(count);
    unsigned long received = 0;
    const int result =
        m_api->XoNoticeGetEvent(m_notice, timeoutMs, count, arrived.data(), &received);
    if (result == XoOk)
    {
        arrived.resize(received);
        events = std::move(arrived);
    }
    TVO_LOG_DEBUG("XoNoticeGetEvent result: 0x{:x}", Hex(result));
    return ToResultCode(result);
}

}  // namespace common_utils::app_utils::notice
