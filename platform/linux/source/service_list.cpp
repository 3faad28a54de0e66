#include <map>
#include <string>
#include <utility>
#include <vector>

#include <tvo/service_list.h>
#include <xo/result.h>

#include "lock_file.h"
#include "names.h"
#include "rendezvous.h"
#include "socket_census.h"

using namespace platform;

namespace {

struct Service
{
    std::string name;
    std::string interfaceName;
    std::string entity;
    std::uint32_t pid = 0;
    bool isStatic = false;
    SocketLoad load{TvoUnknownCount, TvoUnknownCount};
};

std::uint32_t ProcessOf(const std::vector<LockFileLine>& lines)
{
    for (const LockFileLine& line : lines)
    {
        if (line.kind == LockFileLine::Kind::Process)
        {
            return line.number;
        }
    }
    return 0;
}

/// Reads the two halves of the rendezvous folder.
class ServiceReader final
{
public:
    std::vector<Service> Read(int servers, int connections)
    {
        ForEachName(servers,
                    [this](const Service& shared, const std::vector<LockFileLine>& lines)
                    { AddServices(shared, lines); });
        ForEachName(connections,
                    [this](const Service& shared, const std::vector<LockFileLine>&)
                    { AddStaticName(shared); });
        return std::move(m_services);
    }

private:
    /// @param add  called with a record that has all that is known of the name
    template <class Add>
    void ForEachName(int folder, Add add) const
    {
        for (const std::string& encodedName : ListLockFiles(folder))
        {
            auto name = DecodeText(encodedName);
            const auto lines = name ? ReadHeldLockFile(folder, encodedName) : std::nullopt;
            if (!lines)
            {
                continue;
            }
            Service shared;
            shared.name = std::move(*name);
            shared.pid = ProcessOf(*lines);
            if (const auto load = m_census.Find(folder, encodedName + std::string(SocketSuffix)))
            {
                shared.load = *load;
            }
            add(shared, *lines);
        }
    }

    void AddServices(const Service& server, const std::vector<LockFileLine>& lines)
    {
        m_entities[server.pid] = server.name;
        for (const LockFileLine& line : lines)
        {
            if (line.kind == LockFileLine::Kind::Service)
            {
                m_services.push_back(
                    {line.second, line.first, server.name, server.pid, false, server.load});
            }
        }
    }

    void AddStaticName(Service service)
    {
        const auto entity = m_entities.find(service.pid);
        service.entity = entity != m_entities.end() ? entity->second : std::string();
        service.isStatic = true;
        m_services.push_back(std::move(service));
    }

    const SocketCensus m_census = SocketCensus::Take();
    std::map<std::uint32_t, std::string> m_entities;
    std::vector<Service> m_services;
};

}  // namespace

struct STvoServiceList
{
    std::vector<Service> services;
    std::uint32_t uid;
};

int TvoServiceListRead(STvoServiceList** list)
{
    *list = nullptr;
    const int servers = Rendezvous::Instance().Open(Place::Servers, Purpose::Look);
    const int connections = Rendezvous::Instance().Open(Place::Connections, Purpose::Look);
    if (servers < 0 || connections < 0)
    {
        return XoObjectGone;
    }
    // Nobody but the folder's owner creates names there.
    *list = new STvoServiceList{ServiceReader().Read(servers, connections),
                                Rendezvous::Instance().Owner()};
    return XoOk;
}

std::uint32_t TvoServiceListSize(const STvoServiceList* list)
{
    return static_cast<std::uint32_t>(list->services.size());
}

TvoService TvoServiceListGet(const STvoServiceList* list, std::uint32_t index)
{
    const Service& service = list->services[index];
    return {service.name.c_str(),
            service.interfaceName.c_str(),
            service.entity.c_str(),
            service.isStatic ? 1U : 0U,
            service.pid,
            list->uid,
            service.load.waiting,
            service.load.served};
}

void TvoServiceListRelease(STvoServiceList* list)
{
    delete list;
}
