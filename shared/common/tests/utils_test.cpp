#include <future>

#include <gtest/gtest.h>

#include <component/plk/process_exception.h>
#include <shared/common/utils/cancellation_token.h>
#include <shared/common/utils/generic_task.h>

namespace {

using common::utils::CancellationToken;
using Action = common::utils::ICancellationToken::ExecutionAction;
using namespace std::chrono_literals;

std::pair<int, Action> WaitFor(const CancellationToken& token, std::chrono::milliseconds timeout)
{
    Action action{};
    const int result = token.GetExecutionAction(action, timeout);
    return {result, action};
}

TEST(CancellationToken, KeepsAWakeUpForTheNextWaitAndDoesNotCount)
{
    CancellationToken token(Action::Cancel);
    EXPECT_EQ(WaitFor(token, 0ms), std::pair(1, Action::Cancel));
    token.Resume();
    token.Resume();
    EXPECT_EQ(WaitFor(token, 1h), std::pair(0, Action::Run));
    EXPECT_EQ(WaitFor(token, 0ms), std::pair(1, Action::Run));
    token.Pause();
    EXPECT_TRUE(token.IsPaused());
    token.SetAction(Action::Cancel);
    token.Wait();
    EXPECT_TRUE(token.IsCanceled());
    EXPECT_EQ(WaitFor(token, 0ms).first, 1);
}

}  // namespace
