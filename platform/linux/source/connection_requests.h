#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "deadline.h"
#include "descriptor.h"
#include "handshake.h"
#include "peer.h"
#include "waitable.h"

namespace platform {

inline constexpr std::size_t MaxPendingRequests = 128;

/// Clients that ask for a connection and wait for the verdict, on the socket under which this
/// process has published its services. Any thread may use it at any time.
class ConnectionRequests final : public Waitable
{
public:
    /// Of the process; null before the first service was published.
    static ConnectionRequests* Instance();

    /// @returns false when there is no descriptor left
    static bool Start(Descriptor listeningSocket);

    /// Requests for published services go before others, so that nobody is held up by clients that
    /// ask for what is not here.
    void AddService(std::string service);

    /// @param request  under a client name that no other request has
    int Listen(const Deadline& deadline, ConnectRequest& request);

    /// A request on its way to an endpoint or to its refusal.
    struct Taken
    {
        std::uint64_t number = 0;
        Descriptor socket;
        Peer peer;
    };

    /// Takes the request last reported under these names out of the pending ones.
    std::optional<Taken> Take(const char* client, const char* service);

    /// Puts back what could not be accepted.
    void PutBack(Taken taken, const char* client, const char* service);

    int WaitDescriptor() const override
    {
        return m_epoll.Get();
    }

    int DueIn() override;

private:
    struct Request
    {
        Descriptor socket;
        Peer peer;
        Deadline::Clock::time_point since;
        bool asked = false;          ///< has said what it wants
        std::uint64_t reported = 0;  ///< when it was reported last; 0: never
        ConnectRequest names;
    };
    using Requests = std::map<std::uint64_t, Request>;

    explicit ConnectionRequests(Descriptor listeningSocket);

    int ListenLocked(std::unique_lock<std::mutex>& lock,
                     const Deadline& deadline,
                     ConnectRequest& request);
    bool Collect(std::unique_lock<std::mutex>& lock, int timeout);
    void TakeFromBacklog();
    void ReadRequest(Requests::iterator row);
    Requests::iterator Remove(Requests::iterator row);
    void CloseSilent();
    bool MakeRoom();
    Requests::iterator ChooseVictim();
    Requests::iterator ChooseNext();
    bool IsPublished(const Request& request) const;
    void Arm();
    Deadline::Clock::time_point NextLook() const;
    int WaitTime(const Deadline& deadline) const;
    bool Watch(int descriptor, std::uint64_t number);

    const Descriptor m_epoll;
    std::mutex m_mutex;
    Backlog m_backlog;
    bool m_armed = true;
    Deadline::Clock::time_point m_restUntil;
    Deadline::Clock::time_point m_nextLook = Deadline::Clock::time_point::max();
    std::uint64_t m_nextNumber = 1;
    std::uint64_t m_nextReport = 1;
    Requests m_requests;  ///< by number, which is the order of arrival
    std::set<std::string> m_services;
};

}  // namespace platform
