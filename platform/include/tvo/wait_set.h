#pragma once

#include <cstdint>

struct SNotice;

/// Things that one thread waits for at once; opaque, used by pointer. All operations belong to one
/// thread, except `TvoWaitSetWake`.
///
/// What is added is known by a key of the caller's choice, each used once in a set. It counts as
/// ready as long as its own operation, called with the limit 0, has something to do; that call is
/// what ends being ready. So it does not matter how much of it is done between two waits.
struct STvoWaitSet;

/// @returns 0 or `XoNoResources`
int TvoWaitSetCreate(STvoWaitSet** set);

/// Adds an endpoint or a child process by its handle. An endpoint is ready for a request, for a new
/// connection, and for the end of one, which is told by `WzTvoEndpointGetEnded` from now on:
/// whoever adds an endpoint has to fetch them. One that is closed stays ready. A child is ready
/// when it has ended.
/// @returns 0, `XoObjectGone` for no such handle, `XoInvalidArgument` for a key in use,
///          `XoNoResources`
int TvoWaitSetAddHandle(STvoWaitSet* set, std::uint32_t handle, std::uint64_t key);

/// Adds event objects, through the notice that is subscribed to them: `XoNoticeGetEvent`. The
/// notice has to be removed before it is released.
int TvoWaitSetAddNotice(STvoWaitSet* set, SNotice* notice, std::uint64_t key);

/// Adds the requests for connections to this process's published services: `XoCmListen`. Those that
/// were reported and neither accepted nor dropped do not count.
/// @returns 0, `XoObjectGone` before a service was published, or another code
int TvoWaitSetAddConnectionRequests(STvoWaitSet* set, std::uint64_t key);

/// Adds the wish that this process should end: SIGTERM and SIGINT do nothing else from now on, in
/// this thread and those that it starts. Reporting it uses it up. The set's release restores both.
int TvoWaitSetAddTermination(STvoWaitSet* set, std::uint64_t key);

/// Adds the wish that this process should read its configuration anew: SIGHUP, in the same way.
int TvoWaitSetAddReload(STvoWaitSet* set, std::uint64_t key);

/// Adds that a server of the terminal has taken its name or published a service, for instance one
/// that `TvoProcessServes` is asked about. Reporting it uses it up.
/// @returns 0, or `XoNoResources`, also when the rendezvous folder is unusable
int TvoWaitSetAddServerChanges(STvoWaitSet* set, std::uint64_t key);

/// @returns 0, or `XoInvalidArgument` when nothing has this key
int TvoWaitSetRemove(STvoWaitSet* set, std::uint64_t key);

/// Waits until something is ready or the set is woken.
/// @param timeoutMs  milliseconds; 0xFFFFFFFF waits without a limit
/// @param count  room in `keys`, at least 1; what finds no place there is reported by the next wait
/// @param received  how many are ready; 0 when the set was woken
/// @returns 0 or `XoTimedOut`; a permanent failure comes after at least 100 ms
int TvoWaitSetWait(STvoWaitSet* set,
                   std::uint32_t timeoutMs,
                   unsigned long count,
                   std::uint64_t* keys,
                   unsigned long* received);

/// Ends the running wait, or else the next one.
/// @note thread: any
int TvoWaitSetWake(STvoWaitSet* set);

/// Frees the set; what was added stays open.
int TvoWaitSetRelease(STvoWaitSet* set);
