#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <component/plk/semaphore.h>
#include <xo/handle.h>

namespace tvo::ipc {

/// Accepts the clients of a server: listens for connection requests on a thread of its own, looks
/// the wanted service up in the plan, asks the application and accepts the client onto the endpoint
/// of the service's group. The callbacks run on that thread, with no lock held.
class ConnectionManager final
{
public:
    /// One service of the plan.
    struct Parameters
    {
        unsigned int riid;   ///< interface number; 65535 is invalid
        unsigned int group;  ///< services of one group share an endpoint; 0 for no group
    };

    using Plan = std::map<std::string_view, Parameters, std::less<void>>;
    using GroupHandles = std::map<unsigned int, unsigned int>;

    /// Decides about a client. May replace the endpoint that the client is to be accepted on;
    /// XoInvalidHandle has a new one made. A throw refuses.
    using ConnectCallback = std::function<bool(const char* client,
                                               const char* service,
                                               unsigned int riid,
                                               unsigned int group,
                                               unsigned int& handle)>;

    /// Told what became of a client that was let in.
    using AcceptedCallback = std::function<void(const char* client,
                                                const char* service,
                                                unsigned int riid,
                                                unsigned int group,
                                                unsigned int handle,
                                                bool accepted)>;

    using LogCallback = std::function<void(std::string_view text, bool error)>;

    struct Config
    {
        Plan plan;
        GroupHandles groupHandles;  ///< endpoints that exist already
        ConnectCallback onConnect;  ///< empty: everybody is let in
        AcceptedCallback onAccepted;
        LogCallback onLog;
        unsigned int listenTimeout = 1000;  ///< milliseconds; bounds how late `Stop` is noticed
        bool ownHandles = false;            ///< the endpoints given or replaced are closed too
        bool autoStart = false;
    };

    /// @throws std::runtime_error  when the plan holds an invalid interface number
    explicit ConnectionManager(const Config& config);

    ConnectionManager(const Plan& plan,
                      const GroupHandles& groupHandles,
                      ConnectCallback onConnect,
                      AcceptedCallback onAccepted,
                      LogCallback onLog,
                      unsigned int listenTimeout,
                      bool ownHandles,
                      bool autoStart);

    ~ConnectionManager();

    ConnectionManager(const ConnectionManager&) = delete;
    ConnectionManager& operator=(const ConnectionManager&) = delete;

    /// @returns false, with nothing changed, when it is started already
    bool Start();

    /// Waits for the thread, at most for one listen limit and a running callback. Afterwards no
    /// group has an endpoint any more, also those that had one at construction.
    /// @param handles  receives the endpoints that the manager holds, which are the caller's then;
    ///                 null closes them
    /// @returns false, with nothing changed, when it is not started
    bool Stop(std::vector<unsigned int>* handles);

private:
    using Waiters = std::vector<std::weak_ptr<plk::Semaphore>>;

    struct Group
    {
        unsigned int handle = XoInvalidHandle;
        Waiters waiters;  ///< posted once when the group gets its endpoint, or at `Stop`
    };

    using Groups = std::map<unsigned int, Group>;

    struct Descriptor
    {
        unsigned int riid;
        Groups::iterator group;  ///< the end for no group
    };

    /// A connection request on its way through a round.
    struct Request
    {
        const char* client;
        const char* service;
        Groups::iterator groupEntry;
        unsigned int riid;
        unsigned int group;
        unsigned int handle;
    };

    void ReadPlan(const Plan& plan);
    void ReadGroupHandles(const GroupHandles& groupHandles);
    void Worker();
    std::uint32_t ServeOneRequest();
    int Listen(char* client, char* service);
    void Admit(const Descriptor& descriptor, const char* client, const char* service);
    bool AskApplication(Request& request);
    int Accept(Request& request);
    void TellApplication(const Request& request, bool accepted);
    void PublishHandle(const Request& request);
    unsigned int HandleOf(Groups::iterator group);
    Waiters ForgetGroupHandles();
    static void Post(const Waiters& waiters);

    std::mutex m_mutex;
    std::shared_mutex m_groupLock;
    std::set<unsigned int> m_openHandles;
    Groups m_groups;
    std::map<std::string, Descriptor, std::less<>> m_descriptors;
    ConnectCallback m_onConnect;
    AcceptedCallback m_onAccepted;
    LogCallback m_onLog;
    const unsigned int m_listenTimeout;
    const bool m_ownHandles;
    std::atomic<bool> m_running = false;
    std::atomic<bool> m_stopping = false;
    std::thread m_thread;
};

}  // namespace tvo::ipc
