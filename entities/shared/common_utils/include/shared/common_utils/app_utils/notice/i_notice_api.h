#pragma once

#include <xo/notice.h>

namespace common_utils::app_utils::notice {

/// The operating system's calls behind a notice; see <xo/notice.h>. Each returns its result.
class INoticeApi
{
public:
    virtual ~INoticeApi() = default;

    virtual int XoNoticeCreate(SNotice** notice) const = 0;
    virtual int XoNoticeSubscribeToObject(SNotice* notice,
                                          unsigned int handle,
                                          unsigned int mask,
                                          unsigned long id) const = 0;
    virtual int XoNoticeGetEvent(SNotice* notice,
                                 unsigned long timeoutMs,
                                 unsigned long count,
                                 EventDesc* events,
                                 unsigned long* received) const = 0;
    virtual int XoNoticeUnsubscribeFromObject(SNotice* notice, unsigned int handle) const = 0;
    virtual int XoNoticeUnsubscribeFromEvent(SNotice* notice, unsigned long id) const = 0;
    virtual int XoNoticeDropAndWake(SNotice* notice) const = 0;
    virtual int XoNoticeRelease(SNotice* notice) const = 0;
    virtual int XoNoticeSetObjectEvent(unsigned int handle, unsigned int mask) const = 0;
};

}  // namespace common_utils::app_utils::notice
