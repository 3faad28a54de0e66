#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include <shared/common/tvo/service/i_service_loop.h>
#include <tvo/wait_set.h>

#include "connection_acceptor.h"
#include "i_source.h"
#include "timer_queue.h"

namespace tvo::service {

/// The loop on a wait set of the platform.
class ServiceLoop final : public IServiceLoop
{
public:
    ServiceLoop();
    ~ServiceLoop() override;

    void Serve(const ServedInterface& served, InterfaceHandlers handlers) override;
    int Answer(Ticket ticket, const wz_message* response, const wz_arena* arena) override;
    TimerToken After(std::chrono::milliseconds delay, Callback callback) override;
    TimerToken Every(std::chrono::milliseconds interval, Callback callback) override;
    std::unique_ptr<IChild> StartChild(const ChildProgram& program,
                                       std::function<void(const ChildEnd& end)> ended) override;
    void OnTurnEnd(Callback callback) override;
    void OnTermination(Callback callback) override;
    void OnReload(Callback callback) override;
    bool OnServersChange(Callback callback) override;
    int Run() override;
    void Stop() override;

private:
    struct ReleaseWaitSet
    {
        void operator()(STvoWaitSet* set) const
        {
            TvoWaitSetRelease(set);
        }
    };

    std::uint64_t Add(std::shared_ptr<ISource> source);
    void Publish(const ServedInterface& served,
                 const InterfaceHandlers& handlers,
                 std::uint32_t endpoint);
    int Turn();
    int WaitAndServe(std::uint32_t limit, ISource::Amount amount);
    void OnReady(std::uint64_t key, ISource::Amount amount);
    void Terminate();

    const std::unique_ptr<STvoWaitSet, ReleaseWaitSet> m_waitSet;
    std::map<std::uint64_t, std::shared_ptr<ISource>> m_sources;  ///< by their keys in the set
    std::uint64_t m_nextKey = 1;
    std::vector<std::uint64_t> m_ready;  ///< room for the keys of all
    std::shared_ptr<ConnectionAcceptor> m_acceptor;
    TimerQueue m_timers;
    Callback m_turnEnd;
    Callback m_termination;
    std::atomic<bool> m_stopping = false;
};

}  // namespace tvo::service
