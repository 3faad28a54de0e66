#include <future>

#include <gtest/gtest.h>

#include <component/plk/process_exception.h>
#include <shared/common/utils/cancellation_token.h>
#include <shared/common/utils/generic_task.h>

namespace {

using common::utils::CancellationToken;
using Action = common::utils::ICancellationToken::ExecutionAction;
using namespace std::chrono_literals;

TEST(GenericTask, RunsItsFunctionAndRefusesAnEmptyOne)
{
    int runs = 0;
    common::utils::GenericTask([&] { ++runs; }).Execute();
    EXPECT_EQ(runs, 1);
    EXPECT_THROW(common::utils::GenericTask(nullptr), zin::CheckFailedException);
}

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

TEST(CancellationToken, TakesLimitsThatTheClockCannotHold)
{
    CancellationToken token(Action::Run, CancellationToken::Reset::Manual);
    EXPECT_EQ(WaitFor(token, std::chrono::milliseconds::min()).first, 1);
    auto waiter = std::async(std::launch::async,
                             [&] { return WaitFor(token, std::chrono::milliseconds::max()); });
    EXPECT_EQ(waiter.wait_for(20ms), std::future_status::timeout);
    token.Pause();
    EXPECT_EQ(waiter.get(), std::pair(0, Action::Pause));
    EXPECT_EQ(WaitFor(token, 1h).first, 0) << "nobody resets the event";
}

}  // namespace
