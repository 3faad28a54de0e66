#pragma once

#include <memory>

#include <shared/common_utils/app_utils/notice/i_notice.h>
#include <shared/common_utils/app_utils/notice/i_notice_api.h>

namespace common_utils::app_utils::notice {

/// The operating system's notice for the life of this object. Nobody may be waiting at its end:
/// `DropAndWake`, join, destroy.
class Notice final : public INotice
{
public:
    /// @throws zin::CheckFailedException  for a null api, or when the system gives no notice
    explicit Notice(std::shared_ptr<INoticeApi> api);
    ~Notice() override;

    Notice(const Notice&) = delete;
    Notice& operator=(const Notice&) = delete;

    int SubscribeToObject(const unsigned int& handle,
                          unsigned int mask,
                          unsigned long id) const override;
    int WaitForEvents(const std::chrono::milliseconds& timeout,
                      unsigned long count,
                      std::vector<EventDesc>& events) const override;
    int WaitEvents(unsigned long count, std::vector<EventDesc>& events) const override;
    int UnsubscribeFromObject(const unsigned int& handle) const override;
    int UnsubscribeFromEvent(unsigned long id) const override;
    int DropAndWake() const override;
    int SetObjectEvent(const unsigned int& handle, unsigned int mask) const override;

    /// What both waits come down to.
    /// @param timeoutMs  milliseconds; 0xFFFFFFFF waits without a limit
    int WaitForEvents(unsigned long timeoutMs,
                      unsigned long count,
                      std::vector<EventDesc>& events) const;

private:
    std::shared_ptr<INoticeApi> m_api;
    SNotice* m_notice = nullptr;
};

}  // namespace common_utils::app_utils::notice
