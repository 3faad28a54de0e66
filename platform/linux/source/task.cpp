#include <cerrno>
#include <mutex>
#include <set>

#include <unistd.h>

#include <tvo/task.h>

#include "handle_table.h"
#include "handshake.h"
#include "names.h"
#include "object.h"
#include "process_name.h"

namespace platform {
namespace {

class Task final : public Object
{
public:
    Task() : Object(ObjectKind::Task) {}

    void Close() override {}
};

struct TaskState
{
    std::mutex mutex;
    std::string entity;
    std::vector<LockFileLine> endpoints;
    bool fixed = false;
    std::set<std::string> ownConnections;
};

TaskState& State()
{
    static auto* const state = new TaskState;
    return *state;
}

}  // namespace

std::optional<std::string> EntityName()
{
    const std::lock_guard lock(State().mutex);
    return State().entity.empty() ? std::nullopt : std::optional(State().entity);
}

std::string OwnName()
{
    const std::string name = EntityName().value_or(program_invocation_short_name);
    return ToPrintable(name.empty() ? "unknown" : name, MaxClientName);
}

std::vector<LockFileLine> OwnLines()
{
    std::vector<LockFileLine> lines;
    lines.push_back({LockFileLine::Kind::Process, static_cast<std::uint32_t>(::getpid()), {}, {}});
    const std::lock_guard lock(State().mutex);
    lines.insert(lines.end(), State().endpoints.begin(), State().endpoints.end());
    return lines;
}

void FixComponentTree()
{
    const std::lock_guard lock(State().mutex);
    State().fixed = true;
}

}  // namespace platform

using namespace platform;

std::uint32_t TvoTaskGetSelf()
{
    static const std::uint32_t self = HandleTable::Instance().Add(std::make_shared<Task>());
    return self;
}

int TvoTaskSetComponentTree(std::uint32_t self, const TvoComponentTree* tree)
{
    if (self != TvoTaskGetSelf() || tree == nullptr || !EncodeName(tree->entity))
    {
        return XoInvalidArgument;
    }
    const std::lock_guard lock(State().mutex);
    if (State().fixed)
    {
        return XoInvalidArgument;
    }
    State().entity = tree->entity;
    State().endpoints = EndpointLines(*tree);
    return XoOk;
}

int TvoTaskConnectToService(std::uint32_t client, std::uint32_t server, const char* connectionId)
{
    const std::uint32_t self = TvoTaskGetSelf();
    if (client != self || server != self || !EncodeName(connectionId))
    {
        return XoInvalidArgument;
    }
    const std::lock_guard lock(State().mutex);
    State().ownConnections.insert(connectionId);
    return XoOk;
}
