#include <algorithm>

#include <tvo/wait_set.h>

#include "awaited_signals.h"
#include "connection_requests.h"
#include "endpoint.h"
#include "handle_table.h"
#include "notice_object.h"
#include "pause.h"
#include "process.h"
#include "server_changes.h"
#include "wait_set.h"

struct STvoWaitSet
{
    std::unique_ptr<platform::WaitSet> set;
};

using namespace platform;

namespace {

std::shared_ptr<Waitable> Awaited(std::initializer_list<int> signals)
{
    return std::make_shared<AwaitedSignals>(signals);
}

}  // namespace

int TvoWaitSetCreate(STvoWaitSet** set)
{
    auto made = WaitSet::Make();
    *set = made != nullptr ? new STvoWaitSet{std::move(made)} : nullptr;
    return *set != nullptr ? XoOk : XoNoResources;
}

int TvoWaitSetAddHandle(STvoWaitSet* set, std::uint32_t handle, std::uint64_t key)
{
    HandleTable& table = HandleTable::Instance();
    if (auto endpoint = table.Find<Endpoint>(handle))
    {
        return set->set->Add(std::move(endpoint), key);
    }
    auto process = table.Find<Process>(handle);
    return process != nullptr ? set->set->Add(std::move(process), key) : XoObjectGone;
}

int TvoWaitSetAddNotice(STvoWaitSet* set, SNotice* notice, std::uint64_t key)
{
    return set->set->Add(notice->set, key);
}

int TvoWaitSetAddConnectionRequests(STvoWaitSet* set, std::uint64_t key)
{
    // Never destroyed, so owned by nobody.
    const std::shared_ptr<Waitable> requests(std::shared_ptr<void>(),
                                             ConnectionRequests::Instance());
    return requests != nullptr ? set->set->Add(requests, key) : XoObjectGone;
}

int TvoWaitSetAddTermination(STvoWaitSet* set, std::uint64_t key)
{
    return set->set->Add(Awaited({SIGTERM, SIGINT}), key);
}

int TvoWaitSetAddReload(STvoWaitSet* set, std::uint64_t key)
{
    return set->set->Add(Awaited({SIGHUP}), key);
}

int TvoWaitSetAddServerChanges(STvoWaitSet* set, std::uint64_t key)
{
    auto changes = ServerChanges::Make();
    return changes != nullptr ? set->set->Add(std::move(changes), key) : XoNoResources;
}

int TvoWaitSetRemove(STvoWaitSet* set, std::uint64_t key)
{
    return set->set->Remove(key);
}

int TvoWaitSetWait(STvoWaitSet* set,
                   std::uint32_t timeoutMs,
                   unsigned long count,
                   std::uint64_t* keys,
                   unsigned long* received)
{
    const int result = set->set->Wait(Deadline(timeoutMs), {keys, count}, *received);
    if (result == XoBroken)
    {
        PauseAfterFailure();
    }
    return result;
}

int TvoWaitSetWake(STvoWaitSet* set)
{
    set->set->Wake();
    return XoOk;
}

int TvoWaitSetRelease(STvoWaitSet* set)
{
    delete set;
    return XoOk;
}
