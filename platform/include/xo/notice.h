#pragma once

#include <cstdint>

#include "xo/handle.h"

/// A set of subscriptions that a thread can wait on; opaque, used by pointer. Every operation may
/// be called from any thread; only `XoNoticeRelease` must be the last.
struct SNotice;

/// One thing that has happened.
struct EventDesc
{
    std::uint64_t id;      ///< the value given at subscribing
    std::uint32_t events;  ///< the bits that were set since the last report, within the mask
    std::uint32_t reserved;
};

static_assert(sizeof(EventDesc) == 16);

/// The bit that reports the end of an object: its other side was closed or has died.
inline constexpr std::uint32_t XoEventClosed = 0x00000001U;

int XoNoticeCreate(SNotice** notice);

/// Subscribes to the waiting end of an event object. One subscription an object in a process.
int XoNoticeSubscribeToObject(SNotice* notice,
                              std::uint32_t handle,
                              std::uint32_t mask,
                              unsigned long id);

/// Waits until at least one event is there, for at most `timeoutMs` milliseconds (0xFFFFFFFF: no
/// limit), and fills up to `count` records. `XoEventClosed` is reported once, together with what
/// came before it; then the object leaves the set. Closing the subscribed handle itself counts as
/// its end.
/// @returns 0, `XoTimedOut`, `XoObjectGone` after `XoNoticeDropAndWake`; a permanent failure comes
///          after at least 100 ms
int XoNoticeGetEvent(SNotice* notice,
                     unsigned long timeoutMs,
                     unsigned long count,
                     EventDesc* events,
                     unsigned long* received);

int XoNoticeUnsubscribeFromObject(SNotice* notice, std::uint32_t handle);
int XoNoticeUnsubscribeFromEvent(SNotice* notice, unsigned long id);

/// Every waiter returns with `XoObjectGone`, and so does every later wait.
int XoNoticeDropAndWake(SNotice* notice);

/// Frees the notice; nobody may be using it any more.
int XoNoticeRelease(SNotice* notice);

/// Makes an event object.
/// @param setter  for `XoNoticeSetObjectEvent`; stays in this process
/// @param waiter  for subscribing; may travel in a message, the sender's handle stays open
int XoEventCreate(std::uint32_t* setter, std::uint32_t* waiter);

/// Sets event bits through the setting end. Never blocks and loses no bit; bits that the waiter has
/// not fetched yet are joined.
/// @param mask  not empty and without `XoEventClosed`, which is the platform's to report
/// @returns 0, `XoInvalidArgument` also for a waiting end, or `XoObjectGone`
int XoNoticeSetObjectEvent(std::uint32_t handle, std::uint32_t mask);
