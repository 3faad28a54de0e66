#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <wz/message.h>
#include <wz/transport.h>
#include <xo/result.h>

/// The double of the operating system's calls: one process, no sockets, no files.
///
/// Link tvo::platform_testing instead of tvo::platform and every call of the platform's headers
/// works as told there: a server thread receives what a client thread calls, time limits pass,
/// handles travel, notices wake. On top of that a test may script each call: let it fail, return a
/// given code, block until released, or run the test's own function.
///
///     platform::testing::PlatformDouble platform;
///     platform.Return(Call::TransportReceive, {.code = WzTimedOut, .times = 3});
///     platform.Serve({.server = "vx.manager", .service = "commands", .riid = 4}, handler);
///     ...
///     EXPECT_EQ(platform.Count(Call::CmDrop), 1U);
///
/// Two ways to get a partner for a client: `Serve` answers its calls by a function that runs on the
/// caller's thread (no thread to care for), or a real server loop on an endpoint of
/// `ServiceLocatorRegister` or `XoCmAccept`.
namespace platform::testing {

/// Every call of the platform that can be scripted and is counted.
enum class Call : unsigned
{
    CmConnect,
    CmListen,
    CmAccept,
    CmDrop,
    HandleClose,
    Sleep,  ///< never sleeps; only counted and put into the journal
    TransportCall,
    TransportReceive,
    TransportReply,
    TransportDetach,
    TransportGetPeer,
    TicketReply,
    EventCreate,
    NoticeCreate,
    NoticeSubscribeToObject,
    NoticeGetEvent,
    NoticeUnsubscribeFromObject,
    NoticeUnsubscribeFromEvent,
    NoticeDropAndWake,
    NoticeRelease,
    NoticeSetObjectEvent,
    LocatorRegister,
    LocatorUnregister,
    LocatorConnect,
    LocatorGetRiid,
    TaskSetComponentTree,
    TaskConnectToService,
    RandomGenerate,
    PublishService,
    FindTarget,
};

inline constexpr std::size_t CallCount = static_cast<std::size_t>(Call::FindTarget) + 1;

/// What some of the next runs of a call return, instead of doing anything. Outputs stay as they
/// are. Calls whose result is no code fail in their own way whatever the code: all ones, 65535,
/// false, an empty optional.
struct Script
{
    static constexpr unsigned Forever = ~0U;

    int code = XoObjectGone;
    unsigned times = 1;
};

/// One run of a call that has returned.
struct Record
{
    Call call;
    std::string arguments;  ///< names in quotes, numbers in decimal, pointers left out
    std::int64_t result;    ///< code, handle or number; 0 and 1 for false and true
};

/// The answer of a service made by `PlatformDouble::Serve`. Runs on the calling thread, without a
/// lock, so it may use the platform itself.
///
/// `request` is followed by the whole request, its arena's `current` stands behind the received
/// bytes. `response` is a zeroed buffer of 4096 bytes whose header repeats `iid` and `mid` and has
/// the caller's room as its size; `responseArena` has the caller's room. Handles in the response's
/// slots reach the caller as handles of its own.
/// @returns what the caller's `call` returns; the response is delivered only with 0
using ServiceHandler = std::function<int(const wz_message* request,
                                         const wz_arena* requestArena,
                                         wz_message* response,
                                         wz_arena* responseArena)>;

/// A service of another process that clients of the test find and connect to.
struct RemoteService
{
    std::string interfaceName;  ///< for `FindConnectionTargetForType`; may be empty
    std::string server;
    std::string service;
    std::uint32_t riid = 1;  ///< told to the client as it stands, also when no valid number
};

/// Functions that run in place of a call, without a lock. An empty one leaves the call alone. To be
/// set before the threads that use the call start. Scripts come before them.
struct Overrides
{
    std::function<int(const char*, const char*, std::uint32_t, std::uint32_t, std::uint32_t*)>
        cmAccept;
    std::function<int(WzTvoTransport*, wz_message*, wz_arena*)> transportReceive;
};

struct PendingRequest;

/// A client that has asked this process for a connection and waits for the verdict; made by
/// `PlatformDouble::RequestConnection`, needs no thread. Copies speak of the same client.
class PendingClient final
{
public:
    explicit PendingClient(std::shared_ptr<PendingRequest> request);

    /// The verdict's code, or nothing when none came within the limit.
    std::optional<int> WaitForVerdict(
        std::chrono::milliseconds limit = std::chrono::seconds(5)) const;

private:
    std::shared_ptr<PendingRequest> m_request;
};

/// Switches the double on in a known state and empties it again at the end: no handles, no
/// services, no scripts, no names; every thread still blocked in a call gets `XoObjectGone`. One at
/// a time. The calls work without one too, in whatever state they have been left.
///
/// Every operation may be called from any thread.
class PlatformDouble final
{
public:
    PlatformDouble();
    ~PlatformDouble();
    PlatformDouble(const PlatformDouble&) = delete;
    PlatformDouble& operator=(const PlatformDouble&) = delete;

    // Scripts.

    /// Adds a script behind those the call already has; each begins when the one before is used up.
    void Return(Call call, Script script);

    /// Lets every further run fail.
    void Fail(Call call, int code = XoObjectGone);

    /// Takes scripts and block of the call away; blocked threads go on.
    void Restore(Call call);

    /// From now on threads stop at the entry of the call, already counted, until `Release`.
    void Block(Call call);
    void Release(Call call);

    Overrides& Override();

    // What has happened.

    /// Runs of the call that have begun.
    unsigned Count(Call call) const;

    /// Waits until so many runs of the call have begun.
    /// @returns false when the limit has passed before
    bool WaitUntilCalled(Call call,
                         unsigned count = 1,
                         std::chrono::milliseconds limit = std::chrono::seconds(5)) const;

    /// Waits until so many threads wait inside the call or stand before its block.
    bool WaitUntilWaiting(Call call,
                          unsigned threads = 1,
                          std::chrono::milliseconds limit = std::chrono::seconds(5)) const;

    /// The runs of one call that have returned, oldest first.
    std::vector<Record> Journal(Call call) const;

    /// Handles that are open, without the task's own.
    std::size_t OpenHandles() const;

    // The world around the process.

    /// Makes a service of another process, accepted at once and answered by `handler`.
    void Serve(RemoteService service, ServiceHandler handler);

    /// The process behind a server dies: its connections hang up, its name is free.
    void Withdraw(const std::string& server);

    /// A client asks for a service. `XoCmListen` reports it under just this name.
    PendingClient RequestConnection(std::string client, std::string service);

    /// Services published by the code under test: interface name and service name.
    std::vector<std::pair<std::string, std::string>> Published() const;

    /// The entity's name from the component tree; empty before it was set.
    std::string Entity() const;
};

}  // namespace platform::testing
