#include "dispatcher_stop_guard.h"

#include <chrono>
#include <future>
#include <utility>

namespace cert_approver {

DispatcherStopGuard::DispatcherStopGuard(
    tvo::entity::IComponentDispatcher& dispatcher,
    std::shared_ptr<interactors::ICertApproverVerdictSetter> verdictSetter) noexcept
    : m_dispatcher(dispatcher), m_verdictSetter(std::move(verdictSetter))
{}

DispatcherStopGuard::~DispatcherStopGuard()
{
    constexpr std::chrono::milliseconds Pause{50};

    // One refusal is not enough: a call that was waiting in the transport may be served next.
    const auto stopped = std::async(std::launch::async, [this] { m_dispatcher.Stop(); });
    while (stopped.wait_for(Pause) != std::future_status::ready)
    {
        m_verdictSetter->SetUserVerdict(Verdict::Close);
    }
}

}  // namespace cert_approver
