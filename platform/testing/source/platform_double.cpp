#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <map>
#include <mutex>

#include <shared/ipc_utils/publish.h>
#include <xo/connection.h>

#include "run.h"

namespace platform::testing {
namespace {

using shared::ipc_utils::FindConnectionTargetForType;
using shared::ipc_utils::NameBuffer;

/// How one call is played.
struct CallState
{
    unsigned count = 0;
    unsigned inside = 0;
    bool blocked = false;
    std::deque<Script> scripts;
    std::any replacement;
    std::vector<Record> journal;
};

struct State
{
    std::mutex mutex;
    std::condition_variable changed;
    std::map<Call, CallState> calls;
};

/// Never destroyed: threads may still be in a call while the process exits.
State& Shared()
{
    static auto* const state = new State;
    return *state;
}

/// Works on a call's state and wakes whoever waits for it to change.
template <typename Work>
auto With(Call call, Work work)
{
    const std::lock_guard lock(Shared().mutex);
    Shared().changed.notify_all();
    return work(Shared().calls[call]);
}

template <typename Condition>
bool WaitUntil(Call call, Condition condition)
{
    std::unique_lock lock(Shared().mutex);
    return Shared().changed.wait_for(
        lock, std::chrono::seconds(5), [&] { return condition(Shared().calls[call]); });
}

/// Forgets everything but who is inside a call.
void Reset()
{
    const std::lock_guard lock(Shared().mutex);
    for (auto& [call, state] : Shared().calls)
    {
        state.inside = std::exchange(state, {}).inside;
    }
    Shared().changed.notify_all();
}

/// The rendezvous folder. The port opens it once in a process.
class RuntimeFolder final
{
public:
    RuntimeFolder()
    {
        if (::mkdtemp(m_path.data()) == nullptr)
        {
            std::abort();
        }
        ::setenv("TVO_RUNTIME_DIR", m_path.c_str(), 1);
    }

    ~RuntimeFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

private:
    std::string m_path = std::filesystem::temp_directory_path() / "tvo-XXXXXX";
};

const RuntimeFolder g_folder;

}  // namespace

Turn Enter(Call call)
{
    State& shared = Shared();
    std::unique_lock lock(shared.mutex);
    CallState& state = shared.calls[call];
    ++state.count;
    ++state.inside;
    shared.changed.notify_all();
    shared.changed.wait(lock, [&] { return !state.blocked; });
    Turn turn{{}, state.replacement};
    if (!state.scripts.empty())
    {
        Script& script = state.scripts.front();
        turn.script = script.code;
        if (script.times != Script::Forever && --script.times == 0)
        {
            state.scripts.pop_front();
        }
    }
    return turn;
}

void Leave(Call call, Record record)
{
    With(call,
         [&](CallState& state)
         {
             --state.inside;
             state.journal.push_back(std::move(record));
         });
}

PlatformDouble::PlatformDouble()
{
    Reset();
}

PlatformDouble::~PlatformDouble()
{
    const auto registrations = Journal(Call::LocatorRegister);
    Reset();
    for (const Record& made : registrations)
    {
        XoHandleClose(static_cast<std::uint32_t>(made.result));
    }
}

void PlatformDouble::Return(Call call, Script script)
{
    With(call, [&](CallState& state) { state.scripts.push_back(script); });
}

void PlatformDouble::Fail(Call call, int code)
{
    Return(call, {.code = code, .times = Script::Forever});
}

void PlatformDouble::Block(Call call)
{
    With(call, [](CallState& state) { state.blocked = true; });
}

void PlatformDouble::Release(Call call)
{
    With(call, [](CallState& state) { state.blocked = false; });
}

void PlatformDouble::Replace(Call call, std::any function)
{
    With(call, [&](CallState& state) { state.replacement = std::move(function); });
}

void PlatformDouble::Serve(std::uint32_t riid, std::function<TransportCall> handler)
{
    const auto find = [](auto...)
    {
        return std::pair<NameBuffer, NameBuffer>({"server"}, {"service"});
    };
    const auto connect = [riid](auto, auto, auto, std::uint32_t* handle, std::uint32_t* number)
    {
        *handle = 0xC0;
        *number = riid;
        return XoOk;
    };
    Override<decltype(FindConnectionTargetForType)>(Call::FindTarget, find);
    Override<decltype(XoCmConnect)>(Call::CmConnect, connect);
    Override(Call::TransportCall, std::move(handler));
}

unsigned PlatformDouble::Count(Call call) const
{
    return With(call, [](const CallState& state) { return state.count; });
}

bool PlatformDouble::WaitUntilCalled(Call call, unsigned count) const
{
    return WaitUntil(call, [&](const CallState& state) { return state.count >= count; });
}

bool PlatformDouble::WaitUntilReturned(Call call, std::int64_t result) const
{
    return WaitUntil(call,
                     [&](const CallState& state)
                     { return std::ranges::count(state.journal, result, &Record::result) > 0; });
}

bool PlatformDouble::WaitUntilWaiting(Call call, unsigned threads) const
{
    return WaitUntil(call, [&](const CallState& state) { return state.inside >= threads; });
}

std::vector<Record> PlatformDouble::Journal(Call call) const
{
    return With(call, [](const CallState& state) { return state.journal; });
}

}  // namespace platform::testing
