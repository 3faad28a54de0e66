#pragma once

#include <shared/common_utils/app_utils/notice/i_notice_api.h>

namespace common_utils::app_utils::notice {

/// Calls the operating system.
class NoticeApi final : public INoticeApi
{
public:
    int XoNoticeCreate(SNotice** notice) const override;
    int XoNoticeSubscribeToObject(SNotice* notice,
                                  unsigned int handle,
                                  unsigned int mask,
                                  unsigned long id) const override;
    int XoNoticeGetEvent(SNotice* notice,
                         unsigned long timeoutMs,
                         unsigned long count,
                         EventDesc* events,
                         unsigned long* received) const override;
    int XoNoticeUnsubscribeFromObject(SNotice* notice, unsigned int handle) const override;
    int XoNoticeUnsubscribeFromEvent(SNotice* notice, unsigned long id) const override;
    int XoNoticeDropAndWake(SNotice* notice) const override;
    int XoNoticeRelease(SNotice* notice) const override;
    int XoNoticeSetObjectEvent(unsigned int handle, unsigned int mask) const override;
};

}  // namespace common_utils::app_utils::notice
