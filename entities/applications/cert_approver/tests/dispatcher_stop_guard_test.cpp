#include "dispatcher_stop_guard.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "business/cert_approver_verdict_interactor.h"

namespace cert_approver {
namespace {

/// Its stop waits for the calls that it serves, as the real one does; they wait for a verdict each.
struct FakeDispatcher : tvo::entity::IComponentDispatcher
{
    explicit FakeDispatcher(const interactors::ICertApproverVerdictGetter& getter)
        : verdicts(getter)
    {}

    int Start() noexcept override
    {
        return 0;
    }

    int Stop() noexcept override
    {
        for (auto& verdict : answers)
        {
            verdicts.GetUserVerdict(verdict);
        }
        return 0;
    }

    const interactors::ICertApproverVerdictGetter& verdicts;
    std::vector<Verdict> answers;
};

TEST(DispatcherStopGuard, RefusesEveryCallThatStillWaits)
{
    const auto verdicts = std::make_shared<interactors::CertApproverVerdictInteractor>();
    FakeDispatcher dispatcher(*verdicts);
    dispatcher.answers.assign(3, Verdict::Approve);
    {
        const DispatcherStopGuard guard(dispatcher, verdicts);
    }
    EXPECT_EQ(dispatcher.answers, std::vector(3, Verdict::Close));
}

}  // namespace
}  // namespace cert_approver
