#include <array>
#include <stdexcept>
#include <utility>

#include <fmt/format.h>

#include <shared/common/tvo/ipc/connection_manager.h>
#include <xo/connection.h>
#include <xo/sleep.h>

namespace tvo::ipc {

namespace {

constexpr unsigned int InvalidRiid = 65535;
constexpr std::uint32_t UnknownServicePause = 600;  // milliseconds

/// The flag of a line for `onLog`.
constexpr bool Event = false;
constexpr bool Failure = true;

using NameBuffer = std::array<char, XoCmNameSize>;

template <typename... Args>
void Say(const ConnectionManager::LogCallback& log,
         bool error,
         fmt::format_string<const Args&...> format,
         const Args&... args)
{
    try
    {
        log(fmt::format(format, args...), error);
    }
    catch (...)
    {
        // A line that cannot be told changes nothing about the round.
    }
}

}  // namespace

ConnectionManager::ConnectionManager(const Config& config)
    : ConnectionManager(config.plan,
                        config.groupHandles,
                        config.onConnect,
                        config.onAccepted,
                        config.onLog,
                        config.listenTimeout,
                        config.ownHandles,
                        config.autoStart)
{}

ConnectionManager::ConnectionManager(const Plan& plan,
                                     const GroupHandles& groupHandles,
                                     ConnectCallback onConnect,
                                     AcceptedCallback onAccepted,
                                     LogCallback onLog,
                                     unsigned int listenTimeout,
                                     bool ownHandles,
                                     bool autoStart)
    : m_onConnect(std::move(onConnect)),
      m_onAccepted(std::move(onAccepted)),
      m_onLog(std::move(onLog)),
      m_listenTimeout(listenTimeout),
      m_ownHandles(ownHandles)
{
    if (!m_onConnect)
    {
        m_onConnect = [](auto&&...)
        {
            return true;
        };
    }
    if (!m_onAccepted)
    {
        m_onAccepted = [](auto&&...) {
        };
    }
    if (!m_onLog)
    {
        m_onLog = [](auto&&...) {
        };
    }
    ReadPlan(plan);
    ReadGroupHandles(groupHandles);
    if (autoStart)
    {
        Start();
    }
}

ConnectionManager::~ConnectionManager()
{
    Stop(nullptr);
}

void ConnectionManager::ReadPlan(const Plan& plan)
{
    for (const auto& [service, parameters] : plan)
    {
        if (parameters.riid == InvalidRiid)
        {
            throw std::runtime_error("tvo::ipc::ConnectionManager: INVALID_RIID in user plan");
        }
        const auto group =
            parameters.group == 0 ? m_groups.end() : m_groups.try_emplace(parameters.group).first;
        m_descriptors.try_emplace(std::string(service), Descriptor{parameters.riid, group});
    }
}

void ConnectionManager::ReadGroupHandles(const GroupHandles& groupHandles)
{
    for (auto& [number, group] : m_groups)
    {
        const auto given = groupHandles.find(number);
        if (given == groupHandles.end())
        {
            continue;
        }
        group.handle = given->second;
        if (group.handle != XoInvalidHandle && m_ownHandles)
        {
            m_openHandles.insert(group.handle);
        }
    }
}

bool ConnectionManager::Start()
{
    const std::lock_guard lock(m_mutex);
    if (m_running)
    {
        return false;
    }
    m_stopping = false;
    m_thread = std::thread([this] { Worker(); });
    m_running = true;
    return true;
}

bool ConnectionManager::Stop(std::vector<unsigned int>* handles)
{
    const std::lock_guard lock(m_mutex);
    if (!m_running)
    {
        return false;
    }
    m_running = false;
    m_stopping = true;
    m_thread.join();

    const Waiters waiters = ForgetGroupHandles();
    if (handles != nullptr)
    {
        handles->insert(handles->end(), m_openHandles.begin(), m_openHandles.end());
    }
    else
    {
        for (const unsigned int handle : m_openHandles)
        {
            XoHandleClose(handle);
        }
    }
    m_openHandles.clear();
    Post(waiters);
    return true;
}

void ConnectionManager::Worker()
{
    Say(m_onLog, Event, "worker start");
    while (!m_stopping)
    {
        std::uint32_t pause = 0;
        try
        {
            pause = ServeOneRequest();
        }
        catch (...)
        {
            // One client's request is lost at most; the others go on being served.
        }
        if (pause != 0 && !m_stopping)
        {
            XoSleep(pause);
        }
    }
    Say(m_onLog, Event, "worker stop");
}

/// @returns milliseconds to pause before the next round
std::uint32_t ConnectionManager::ServeOneRequest()
{
    NameBuffer clientBuffer;
    NameBuffer serviceBuffer;
    char* client = clientBuffer.data();
    char* service = serviceBuffer.data();
    const int result = Listen(client, service);
    if (m_stopping)
    {
        return 0;
    }
    if (result != XoOk)
    {
        Say(m_onLog, Failure, "{}.{}: XoCmListen() = {}", client, service, result);
        return 0;
    }
    if (*client == '\0' || *service == '\0')
    {
        const int dropped = XoCmDrop(client, service);
        Say(m_onLog,
            Failure,
            "{}.{}: XoCmListen(): empty client/service ({})",
            client,
            service,
            dropped);
        return 0;
    }
    const auto descriptor = m_descriptors.find(std::string_view(service));
    if (descriptor == m_descriptors.end())
    {
        // Not dropped: another part of the process may still begin to serve it.
        Say(m_onLog, Event, "{}.{}: not found in user plan", client, service);
        return UnknownServicePause;
    }
    Admit(descriptor->second, client, service);
    return 0;
}

int ConnectionManager::Listen(char* client, char* service)
{
    *client = '\0';
    *service = '\0';
    int result = XoOk;
    do
    {
        result = XoCmListen(nullptr, m_listenTimeout, client, service);
    } while (result == XoTimedOut && !m_stopping);
    return result;
}

void ConnectionManager::Admit(const Descriptor& descriptor, const char* client, const char* service)
{
    const bool grouped = descriptor.group != m_groups.end();
    Request request{client,
                    service,
                    descriptor.group,
                    descriptor.riid,
                    grouped ? descriptor.group->first : 0,
                    HandleOf(descriptor.group)};
    const unsigned int handleBefore = request.handle;
    if (!AskApplication(request))
    {
        const int dropped = XoCmDrop(client, service);
        Say(m_onLog,
            Event,
            "{}.{}:{} #{}: not accepted by user (XoCmDrop={})",
            client,
            service,
            request.riid,
            request.group,
            dropped);
        return;
    }
    const bool track =
        m_ownHandles || request.handle == XoInvalidHandle || m_openHandles.contains(request.handle);
    const int accepted = Accept(request);
    TellApplication(request, accepted == XoOk);
    if (accepted != XoOk)
    {
        const int dropped = XoCmDrop(client, service);
        Say(m_onLog,
            Failure,
            "{}.{}:{} #{}: not accepted: XoCmAccept() = {} (XoCmDrop()={})",
            client,
            service,
            request.riid,
            request.group,
            accepted,
            dropped);
        return;
    }
    if (request.handle == handleBefore)
    {
        return;
    }
    if (track)
    {
        m_openHandles.insert(request.handle);
    }
    PublishHandle(request);
}

bool ConnectionManager::AskApplication(Request& request)
{
    try
    {
        return m_onConnect(
            request.client, request.service, request.riid, request.group, request.handle);
    }
    catch (...)
    {
        return false;
    }
}

int ConnectionManager::Accept(Request& request)
{
    std::uint32_t accepted = XoInvalidHandle;
    const int result =
        XoCmAccept(request.client, request.service, request.riid, request.handle, &accepted);
    if (request.handle == XoInvalidHandle)
    {
        request.handle = accepted;
    }
    else if (accepted != request.handle && accepted != XoInvalidHandle)
    {
        XoHandleClose(accepted);
    }
    return result;
}

void ConnectionManager::TellApplication(const Request& request, bool accepted)
{
    try
    {
        m_onAccepted(
            request.client, request.service, request.riid, request.group, request.handle, accepted);
    }
    catch (...)
    {
        // The client is in, whatever the application makes of it.
    }
}

void ConnectionManager::PublishHandle(const Request& request)
{
    if (request.groupEntry == m_groups.end())
    {
        return;
    }
    Waiters waiters;
    {
        const std::unique_lock lock(m_groupLock);
        request.groupEntry->second.handle = request.handle;
        waiters.swap(request.groupEntry->second.waiters);
    }
    Post(waiters);
}

unsigned int ConnectionManager::HandleOf(Groups::iterator group)
{
    if (group == m_groups.end())
    {
        return XoInvalidHandle;
    }
    const std::shared_lock lock(m_groupLock);
    return group->second.handle;
}

ConnectionManager::Waiters ConnectionManager::ForgetGroupHandles()
{
    Waiters all;
    const std::unique_lock lock(m_groupLock);
    for (auto& [number, group] : m_groups)
    {
        group.handle = XoInvalidHandle;
        all.insert(all.end(), group.waiters.begin(), group.waiters.end());
        group.waiters.clear();
    }
    return all;
}

void ConnectionManager::Post(const Waiters& waiters)
{
    for (const auto& waiter : waiters)
    {
        if (const auto semaphore = waiter.lock())
        {
            semaphore->Post();
        }
    }
}

}  // namespace tvo::ipc
