#include <algorithm>
#include <mutex>
#include <string>

#include <shared/ipc_utils/publish.h>
#include <xo/sleep.h>

#include "bound_name.h"
#include "connection_requests.h"
#include "deadline.h"
#include "handshake.h"
#include "lock_file.h"
#include "log.h"
#include "names.h"
#include "process_name.h"
#include "rendezvous.h"

namespace shared::ipc_utils {
namespace {

using namespace platform;

constexpr std::uint32_t ShortestPause = 10;
constexpr std::uint32_t LongestPause = 100;

/// Takes the entity's name on first use and keeps it until the process exits.
const BoundName* TakeEntityName()
{
    static std::optional<BoundName> name;
    if (name)
    {
        return &*name;
    }
    const auto entity = EntityName();
    if (!entity)
    {
        LogLine(TvoPlatformLogLevel::Error, "a service is published before the component tree");
        return nullptr;
    }
    const int folder = Rendezvous::Instance().Open(Place::Servers, Purpose::Create);
    auto taken = folder >= 0 ? BoundName::Take(folder, *EncodeName(entity->c_str()), OwnLines())
                             : std::nullopt;
    if (!taken)
    {
        return nullptr;
    }
    if (!ConnectionRequests::Start(taken->TakeSocket()))
    {
        LogLine(TvoPlatformLogLevel::Error, "no descriptor left to wait for connections");
        return nullptr;
    }
    FixComponentTree();
    name.emplace(std::move(*taken));
    return &*name;
}

NameBuffer ToBuffer(const std::string& name)
{
    NameBuffer buffer{};
    std::copy_n(name.begin(), std::min(name.size(), buffer.size() - 1), buffer.begin());
    return buffer;
}

using Target = std::optional<std::pair<NameBuffer, NameBuffer>>;

Target Look(int folder, std::string_view interfaceName)
{
    for (const std::string& encodedName : ListLockFiles(folder))
    {
        const auto entity = DecodeText(encodedName);
        const auto lines = entity ? ReadHeldLockFile(folder, encodedName) : std::nullopt;
        if (!lines)
        {
            continue;
        }
        for (const LockFileLine& line : *lines)
        {
            if (line.kind == LockFileLine::Kind::Service && line.first == interfaceName)
            {
                return std::pair(ToBuffer(*entity), ToBuffer(line.second));
            }
        }
    }
    return std::nullopt;
}

}  // namespace

bool TryPublishService(const char* interfaceName, const char* serviceName)
{
    const std::string_view service = serviceName != nullptr ? serviceName : "";
    if (interfaceName == nullptr || service.empty() || service.size() > MaxServiceName)
    {
        LogLine(TvoPlatformLogLevel::Error, "a service is published without a usable name");
        return false;
    }
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    const BoundName* name = TakeEntityName();
    if (name == nullptr)
    {
        return false;
    }
    if (!name->Append({LockFileLine::Kind::Service, 0, interfaceName, serviceName}))
    {
        LogLine(TvoPlatformLogLevel::Error, "cannot publish the service %s", serviceName);
        return false;
    }
    ConnectionRequests::Instance()->AddService(serviceName);
    return true;
}

std::optional<std::pair<NameBuffer, NameBuffer>> FindConnectionTargetForType(
    const char* interfaceName,
    std::uint32_t timeoutMs)
{
    const int folder =
        interfaceName != nullptr ? Rendezvous::Instance().Open(Place::Servers, Purpose::Look) : -1;
    if (folder < 0)
    {
        return std::nullopt;
    }
    const Deadline deadline(timeoutMs);
    std::uint32_t pause = ShortestPause;
    Target target = Look(folder, interfaceName);
    while (!target && !deadline.HasPassed())
    {
        const auto left = static_cast<std::uint32_t>(deadline.Left());
        XoSleep(std::min(pause, left));
        pause = std::min(pause * 2, LongestPause);
        target = Look(folder, interfaceName);
    }
    return target;
}

}  // namespace shared::ipc_utils
