#pragma once

#include <array>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include <platform/testing/platform_double.h>
#include <xo/notice.h>

/// One subscription of a notice to an event object.
struct SNotice
{
    struct Subscription
    {
        std::uint32_t handle;
        std::shared_ptr<struct DoubleEvent> event;
        std::uint32_t mask;
        std::uint64_t id;
        bool closedHere = false;  ///< the subscribed handle itself was closed
    };

    std::vector<Subscription> subscriptions;
    bool dropped = false;
};

struct DoubleEvent
{
    std::uint32_t bits = 0;
    bool ended = false;  ///< the setting end was closed
};

namespace platform::testing {

/// A message on its way, with what travels beside it.
struct Letter
{
    std::uint64_t connection = 0;
    std::uint64_t sequence = 0;
    std::uint64_t acknowledged = 0;
    std::vector<unsigned char> message;
    std::vector<unsigned char> arena;
    std::vector<std::shared_ptr<DoubleEvent>> handles;  ///< null where a slot is empty
};

struct Endpoint;

/// One connection, client's and server's end together.
struct Connection
{
    std::uint64_t id = 0;
    std::shared_ptr<Endpoint> endpoint;  ///< null when `handler` answers
    ServiceHandler handler;
    std::string partner;   ///< server, for `Withdraw`
    bool locator = false;  ///< made by `ServiceLocatorConnect`
    bool closed = false;
    bool busy = false;  ///< a thread is in a call
    std::uint64_t sent = 0;
    std::uint64_t acknowledged = 0;
    std::uint64_t owed = 0;    ///< request received last and not answered yet
    std::uint64_t ticket = 0;  ///< request detached last and not answered yet
    std::uint64_t seenAcknowledged = 0;
    std::map<std::uint64_t, Letter> replies;
};

struct Endpoint
{
    std::deque<Letter> requests;
    std::map<std::uint64_t, std::shared_ptr<Connection>> connections;
    bool closed = false;
};

struct EventEnd
{
    std::shared_ptr<DoubleEvent> event;
    bool setter;
};

using Object = std::variant<std::shared_ptr<Endpoint>, std::shared_ptr<Connection>, EventEnd>;

struct PendingRequest
{
    std::string client;
    std::string service;
    std::uint64_t order = 0;
    std::uint64_t reported = 0;  ///< 0: never
    bool gone = false;
    std::optional<int> verdict;
    std::uint32_t handle = XoInvalidHandle;
    std::uint32_t riid = 65535;
};

struct RegisteredEndpoint
{
    std::string name;
    std::uint32_t handle;
};

/// How one call is played.
struct CallState
{
    unsigned count = 0;
    unsigned waiting = 0;
    bool blocked = false;
    std::deque<Script> scripts;
};

using Lock = std::unique_lock<std::mutex>;

enum class Wake
{
    Ready,
    Expired,
    Abandoned,  ///< the double was reset
};

/// Everything there is in the double's world, under one lock with one condition.
class World
{
public:
    static World& Instance();

    void Reset();

    CallState& Of(Call call);

    /// Waits inside a call until `ready` holds, at most so many milliseconds.
    template <typename Ready>
    Wake Wait(Lock& lock, Call call, std::uint32_t milliseconds, Ready ready)
    {
        CallState& state = Of(call);
        const unsigned startEpoch = epoch;
        const auto done = [&]
        {
            return epoch != startEpoch || ready();
        };
        ++state.waiting;
        changed.notify_all();
        if (milliseconds == WzInfinite)
        {
            changed.wait(lock, done);
        }
        else
        {
            changed.wait_for(lock, std::chrono::milliseconds(milliseconds), done);
        }
        --state.waiting;
        if (epoch != startEpoch)
        {
            return Wake::Abandoned;
        }
        return ready() ? Wake::Ready : Wake::Expired;
    }

    std::uint32_t Add(Object object);
    template <typename T>
    T* Find(std::uint32_t handle)
    {
        const auto found = objects.find(handle);
        return found == objects.end() ? nullptr : std::get_if<T>(&found->second);
    }
    int Close(std::uint32_t handle);

    std::shared_ptr<Connection> MakeConnection(std::string partner);
    void HangUp(Connection& connection);
    void Leave(Connection& connection);
    void CloseEndpoint(Endpoint& endpoint);

    std::mutex mutex;
    std::condition_variable changed;
    unsigned epoch = 0;
    std::array<CallState, CallCount> calls;
    Overrides overrides;
    std::vector<Record> journal;

    std::map<std::uint32_t, Object> objects;
    std::uint32_t nextHandle = 0;
    std::uint64_t nextConnection = 0;
    std::uint64_t nextOrder = 0;
    std::set<SNotice*> notices;

    std::deque<std::shared_ptr<PendingRequest>> pending;
    std::vector<std::pair<RemoteService, ServiceHandler>> remotes;
    std::map<std::uint64_t, RegisteredEndpoint> registered;
    std::string entity;
    std::map<std::string, std::uint16_t> endpointNumbers;
    std::vector<std::pair<std::string, std::string>> published;
};

}  // namespace platform::testing
