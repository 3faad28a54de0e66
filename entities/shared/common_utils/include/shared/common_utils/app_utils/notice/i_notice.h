#pragma once

#include <chrono>
#include <vector>

#include <xo/notice.h>

namespace common_utils::app_utils::notice {

/// A place where a thread waits for events of objects behind handles.
///
/// Any thread may call any operation. Each returns 0, `OperationTimeout` when the time is up,
/// `NotFound` when the object is gone, or `UnspecifiedError`.
class INotice
{
public:
    virtual ~INotice() = default;

    /// @param mask  event bits that are of interest
    /// @param id  of the subscription; comes back with each of its events
    virtual int SubscribeToObject(const unsigned int& handle,
                                  unsigned int mask,
                                  unsigned long id) const = 0;

    /// Waits for at least one event and fetches at most `count`.
    /// @param timeout  a negative one is refused with `InvalidArgument`
    /// @param events  replaced by what has come; left alone when the result is not 0
    virtual int WaitForEvents(const std::chrono::milliseconds& timeout,
                              unsigned long count,
                              std::vector<EventDesc>& events) const = 0;

    /// The same without a limit.
    virtual int WaitEvents(unsigned long count, std::vector<EventDesc>& events) const = 0;

    virtual int UnsubscribeFromObject(const unsigned int& handle) const = 0;
    virtual int UnsubscribeFromEvent(unsigned long id) const = 0;

    /// Ends every wait with `NotFound`, the running ones and those to come. The one way to release
    /// a thread that waits without a limit.
    virtual int DropAndWake() const = 0;

    /// Sets event bits on the setting end of an object; needs no subscription.
    virtual int SetObjectEvent(const unsigned int& handle, unsigned int mask) const = 0;
};

}  // namespace common_utils::app_utils::notice
