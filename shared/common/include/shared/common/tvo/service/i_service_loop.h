#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <shared/common/tvo/service/service_call.h>

namespace tvo::service {

/// An interface that a service offers.
struct ServedInterface
{
    /// Under which name clients reach it. A published service is found by its interface and lets
    /// clients in one by one; a static name takes everybody of the terminal's user.
    enum class Reach
    {
        PublishedService,
        StaticName,
    };

    Reach reach = Reach::PublishedService;
    std::string name;           ///< of the service, or the static connection name
    std::string interfaceName;  ///< under which a published service is found; else unused
    std::uint16_t riid = 0;     ///< requests with another number are rejected

    // Sizes in bytes; what is larger costs its sender the connection.
    std::uint32_t largestRequest = sizeof(wz_message);
    std::uint32_t largestResponse = sizeof(wz_message);
    std::uint32_t requestArena = 0;
    std::uint32_t responseArena = 0;

    /// How many handles a request may bring. They are the handler's, also when it rejects.
    std::uint32_t requestHandles = 0;
};

/// What an interface does. All run on the loop's thread.
struct InterfaceHandlers
{
    /// Serves one request. Must not wait for anything. A throw is logged and rejects the request.
    std::function<Outcome(const ServiceCall& call)> serve = nullptr;

    /// Decides whether a client of a published service is let in; empty: everybody is.
    /// @param client  the name that the client gives itself, with "@pid.number" behind it
    /// @param pid  by the kernel's word
    std::function<bool(const std::string& client, std::uint32_t pid)> admit = nullptr;

    /// A connection of this interface has ended, for whatever reason; comes once for each, soon,
    /// also while its request is parked. Its ticket is void already.
    /// @param connection  as in `ServiceCall::caller`
    std::function<void(std::uint64_t connection)> connectionEnded = nullptr;
};

/// Stands for a running timer: once it is destroyed, nothing is called any more. May outlive the
/// loop. Belongs to the loop's thread.
class ITimerToken
{
public:
    virtual ~ITimerToken() = default;
};

using TimerToken = std::unique_ptr<ITimerToken>;

/// A program to be run as a child.
struct ChildProgram
{
    std::string path;                    ///< no search along PATH
    std::vector<std::string> arguments;  ///< the first one is its name

    /// "NAME=value", added to or replacing this process's; "NAME" alone takes that one away.
    std::vector<std::string> variables;

    /// Descriptor for standard output and error, only used during the call; -1: this process's.
    int output = -1;
};

/// How a child has ended.
struct ChildEnd
{
    bool byItself;  ///< it has exited; otherwise a signal has ended it
    int status;     ///< exit status or number of the signal
};

/// A child that was started. Destroying this lets it run on, unwatched.
class IChild
{
public:
    virtual ~IChild() = default;

    virtual std::uint32_t Pid() const = 0;

    /// Asks the child's process group to end (SIGTERM), or ends it (SIGKILL). Without effect when
    /// the child has ended already.
    virtual void Terminate() = 0;
    virtual void Kill() = 0;

    /// Makes the group leave its core (SIGABRT), also when it was stopped. May be handled.
    virtual void Abort() = 0;

    /// @param server  a name that the child, or one of its group, is to take
    /// @returns true once something is published under it
    virtual bool Serves(const std::string& server) const = 0;
};

/// One thread on which a whole service runs: it serves interfaces, lets clients in, answers later
/// what it could not at once, and calls back at moments in time, at a connection's or a child's
/// end.
///
/// The loop goes in turns. A turn waits until something has happened, serves one request of every
/// interface that has some, clients taking turns, and then calls back the end of the turn. When a
/// timer is due, the turn first reads at least one request of each client that has sent some, so
/// nobody is taken for silent whom the service has not listened to. A client that floods is left
/// after its second request and cannot keep timers or others waiting. Answers never wait: a client
/// that does not read loses its connection.
///
/// All operations but `Stop` belong to the thread that made the loop, also from within callbacks.
/// What a callback throws is logged and changes nothing. Nothing is allocated for a request whose
/// arenas stay below 64 KiB.
class IServiceLoop
{
public:
    using Callback = std::function<void()>;

    virtual ~IServiceLoop() = default;

    /// Takes the interface's name and offers it until the loop is destroyed. Clients are served
    /// while `Run` runs; those that come earlier wait.
    /// @throws zin::Exception  when the name cannot be taken, or no resources are left
    /// @note the component tree has to be set before a service is published
    virtual void Serve(const ServedInterface& served, InterfaceHandlers handlers) = 0;

    /// Answers a deferred request.
    /// @param response  with iid, mid and size; as long as declared for the interface at most
    /// @param arena  null for none
    /// @returns 0, or a failure code of the platform when the ticket is void, and nothing else
    ///          happens then
    virtual int Answer(Ticket ticket, const wz_message* response, const wz_arena* arena) = 0;

    /// Calls back once, at the earliest after the delay; `Every` again and again, without making
    /// up for calls missed while the loop was busy. Monotonic clock; never within this very call.
    [[nodiscard]] virtual TimerToken After(std::chrono::milliseconds delay, Callback callback) = 0;
    [[nodiscard]] virtual TimerToken Every(std::chrono::milliseconds interval,
                                           Callback callback) = 0;

    /// Starts a child in a process group of its own, with signals, mask and descriptor limit as
    /// this process found them, and the standard descriptors only. It ends with this process, and
    /// its group ends with it.
    /// @param ended  comes once, unless the result is destroyed before
    /// @throws zin::Exception  when the program cannot be run
    [[nodiscard]] virtual std::unique_ptr<IChild> StartChild(
        const ChildProgram& program,
        std::function<void(const ChildEnd& end)> ended) = 0;

    /// Sets what is called at the end of each turn, for instance to answer parked requests.
    virtual void OnTurnEnd(Callback callback) = 0;

    /// Sets what SIGTERM and SIGINT do; without it they stop the loop.
    virtual void OnTermination(Callback callback) = 0;

    /// Sets what SIGHUP does from now on; before that it does what it does to any process. To be
    /// called before other threads are started.
    /// @throws zin::Exception  when the platform has no resources left
    virtual void OnReload(Callback callback) = 0;

    /// Sets what is called back soon after any server of the terminal has taken its name or
    /// published a service.
    /// @returns false when the platform can not tell; then `IChild::Serves` has to be asked again
    [[nodiscard]] virtual bool OnServersChange(Callback callback) = 0;

    /// Serves until `Stop`. What is parked then stays so until the loop is destroyed, which ends
    /// all connections.
    /// @returns 0, or a failure code when the platform cannot wait any more
    virtual int Run() = 0;

    /// Ends `Run` with the turn that is under way. Before `Run`, that one returns at once.
    /// @note thread: any
    virtual void Stop() = 0;
};

/// Makes a loop for the calling thread and takes SIGTERM and SIGINT over, so it is to be called
/// before other threads are started. One loop a process.
/// @throws zin::Exception  when the platform has no resources left
std::unique_ptr<IServiceLoop> CreateServiceLoop();

}  // namespace tvo::service
