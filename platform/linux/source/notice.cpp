#include <algorithm>

#include <xo/notice.h>

#include "handle_table.h"
#include "notice_object.h"
#include "pause.h"

using namespace platform;

int XoNoticeCreate(SNotice** notice)
{
    auto set = NoticeSet::Make();
    if (set == nullptr)
    {
        *notice = nullptr;
        return XoNoResources;
    }
    *notice = new SNotice{std::move(set)};
    return XoOk;
}

int XoNoticeSubscribeToObject(SNotice* notice,
                              std::uint32_t handle,
                              std::uint32_t mask,
                              unsigned long id)
{
    HandleTable& table = HandleTable::Instance();
    if (const auto waiter = table.Find<EventWaiter>(handle))
    {
        return notice->set->Subscribe(handle, waiter, mask, id);
    }
    return table.Find<EventSetter>(handle) != nullptr ? XoInvalidArgument : XoObjectGone;
}

int XoNoticeGetEvent(SNotice* notice,
                     unsigned long timeoutMs,
                     unsigned long count,
                     EventDesc* events,
                     unsigned long* received)
{
    *received = 0;
    const Deadline deadline(static_cast<std::uint32_t>(std::min(timeoutMs, 0xFFFFFFFFUL)));
    const int result = notice->set->Wait(deadline, count, events, received);
    if (result == XoBroken)
    {
        PauseAfterFailure();
    }
    return result;
}

int XoNoticeUnsubscribeFromObject(SNotice* notice, std::uint32_t handle)
{
    return notice->set->UnsubscribeObject(handle);
}

int XoNoticeUnsubscribeFromEvent(SNotice* notice, unsigned long id)
{
    return notice->set->UnsubscribeId(id);
}

int XoNoticeDropAndWake(SNotice* notice)
{
    notice->set->Drop();
    return XoOk;
}

int XoNoticeRelease(SNotice* notice)
{
    notice->set->Clear();
    delete notice;
    return XoOk;
}
