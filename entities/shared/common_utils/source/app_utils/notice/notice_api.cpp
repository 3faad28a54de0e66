#include <shared/common_utils/app_utils/notice/notice_api.h>

namespace common_utils::app_utils::notice {

int NoticeApi::XoNoticeCreate(SNotice** notice) const
{
    return ::XoNoticeCreate(notice);
}

int NoticeApi::XoNoticeSubscribeToObject(SNotice* notice,
                                         unsigned int handle,
                                         unsigned int mask,
                                         unsigned long id) const
{
    return ::XoNoticeSubscribeToObject(notice, handle, mask, id);
}

int NoticeApi::XoNoticeGetEvent(SNotice* notice,
                                unsigned long timeoutMs,
                                unsigned long count,
                                EventDesc* events,
                                unsigned long* received) const
{
    return ::XoNoticeGetEvent(notice, timeoutMs, count, events, received);
}

int NoticeApi::XoNoticeUnsubscribeFromObject(SNotice* notice, unsigned int handle) const
{
    return ::XoNoticeUnsubscribeFromObject(notice, handle);
}

int NoticeApi::XoNoticeUnsubscribeFromEvent(SNotice* notice, unsigned long id) const
{
    return ::XoNoticeUnsubscribeFromEvent(notice, id);
}

int NoticeApi::XoNoticeDropAndWake(SNotice* notice) const
{
    return ::XoNoticeDropAndWake(notice);
}

int NoticeApi::XoNoticeRelease(SNotice* notice) const
{
    return ::XoNoticeRelease(notice);
}

int NoticeApi::XoNoticeSetObjectEvent(unsigned int handle, unsigned int mask) const
{
    return ::XoNoticeSetObjectEvent(handle, mask);
}

}  // namespace common_utils::app_utils::notice
