#pragma once

#include <any>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <wz/transport.h>
#include <xo/result.h>

/// Scripts for the operating system's calls.
///
/// Link tvo::platform_testing instead of tvo::platform and the linker leads every call of the
/// platform past the scripts. What is not scripted runs for real, in a rendezvous folder that the
/// program makes for itself when it starts and removes when it ends. As outside of tests, a process
/// has one entity, fixed when it first publishes a service.
///
///     platform::testing::PlatformDouble platform;
///     platform.Return(Call::TransportReceive, {.code = WzTimedOut, .times = 3});
///     ...
///     EXPECT_EQ(platform.Count(Call::CmDrop), 1U);
namespace platform::testing {

/// Every call that can be scripted and is counted. The port's own sleeping counts as `Sleep`, too.
// clang-format off
enum class Call : unsigned
{
    CmConnect, CmListen, CmAccept, CmDrop, HandleClose, Sleep, TransportCall, TransportReceive,
    TransportReply, NoticeCreate, NoticeSubscribeToObject, NoticeGetEvent,
    NoticeUnsubscribeFromObject, NoticeUnsubscribeFromEvent, NoticeDropAndWake,
    NoticeSetObjectEvent, LocatorRegister, LocatorConnect, LocatorGetRiid, TaskSetComponentTree,
    TaskConnectToService, RandomGenerate, PublishService, FindTarget,
};
// clang-format on

/// What some of the next runs of a call return, instead of doing anything. Outputs stay as they
/// are. Calls whose result is no code fail in their own way whatever the code: all ones, 65535,
/// false, an empty optional; `XoSleep` returns at once.
struct Script
{
    static constexpr unsigned Forever = ~0U;

    int code = XoObjectGone;
    unsigned times = 1;
};

/// One run of a call that has returned.
struct Record
{
    std::string arguments;  ///< names in quotes, numbers in decimal, pointers left out
    std::int64_t result;    ///< code, handle or number; 0 and 1 for false and true
};

using TransportCall = std::remove_pointer_t<decltype(WzTvoTransportOperations::call)>;
using TransportReceive = std::remove_pointer_t<decltype(WzTvoTransportOperations::receive)>;

/// Begins with nothing scripted, counted and recorded. At its end it lets blocked threads go and
/// closes the endpoints that still have a static name. One at a time.
///
/// Every operation may be called from any thread. What waits gives up after five seconds.
class PlatformDouble final
{
public:
    PlatformDouble();
    ~PlatformDouble();
    PlatformDouble(const PlatformDouble&) = delete;
    PlatformDouble& operator=(const PlatformDouble&) = delete;

    /// Adds a script behind those the call already has; each begins when the one before is used up.
    void Return(Call call, Script script);

    /// Lets every further run fail.
    void Fail(Call call, int code = XoObjectGone);

    /// From now on threads stop at the entry of the call, already counted, until `Release`.
    void Block(Call call);
    void Release(Call call);

    /// Runs a function of the test's in place of the call, behind the scripts and without a lock:
    /// `Override<decltype(XoCmDrop)>(Call::CmDrop, [](const char*, const char*) { return 0; })`.
    /// With another signature than the call's, running it throws.
    template <typename Signature>
    void Override(Call call, std::function<Signature> function)
    {
        Replace(call, std::move(function));
    }

    /// From now on clients find "service" at "server", every connect gives the handle 0xC0 and this
    /// interface number, and every call is the handler's, which runs on the caller's thread.
    void Serve(std::uint32_t riid, std::function<TransportCall> handler);

    /// Runs of the call that have begun.
    unsigned Count(Call call) const;

    /// Waits until so many runs of the call have begun.
    bool WaitUntilCalled(Call call, unsigned count = 1) const;

    /// Waits until a run of the call has returned this.
    bool WaitUntilReturned(Call call, std::int64_t result) const;

    /// Waits until so many threads are inside the call or stand before its block.
    bool WaitUntilWaiting(Call call, unsigned threads = 1) const;

    /// The runs of one call that have returned, oldest first.
    std::vector<Record> Journal(Call call) const;

private:
    static void Replace(Call call, std::any function);
};

}  // namespace platform::testing
