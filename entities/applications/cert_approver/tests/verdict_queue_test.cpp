#include "business/verdict_queue.h"

#include <future>

#include <gtest/gtest.h>

namespace cert_approver::interactors {
namespace {

Verdict Pop(VerdictQueue& queue, Verdict preset = Verdict::Close)
{
    queue.Pop(preset);
    return preset;
}

TEST(VerdictQueue, AnswersInOrderOfPush)
{
    VerdictQueue queue;
    queue.Push(Verdict::Approve);
    queue.Push(Verdict::Close);
    EXPECT_EQ(Pop(queue), Verdict::Approve);
    EXPECT_EQ(Pop(queue, Verdict::Approve), Verdict::Close);
}

TEST(VerdictQueue, EveryVerdictReachesJustOneWaitingReader)
{
    constexpr int Rounds = 2000;
    VerdictQueue queue;
    const auto approvals = [&queue]
    {
        int count = 0;
        for (int round = 0; round < Rounds; ++round)
        {
            count += Pop(queue) == Verdict::Approve ? 1 : 0;
        }
        return count;
    };
    auto first = std::async(std::launch::async, approvals);
    auto second = std::async(std::launch::async, approvals);
    for (int round = 0; round < 2 * Rounds; ++round)
    {
        queue.Push(round % 2 == 0 ? Verdict::Approve : Verdict::Close);
    }
    EXPECT_EQ(first.get() + second.get(), Rounds);
}

TEST(VerdictQueue, ClosedGivesWhatItHoldsAndThenNothing)
{
    VerdictQueue queue;
    queue.Push(Verdict::Close);
    queue.Close();
    queue.Push(Verdict::Close);
    EXPECT_EQ(Pop(queue, Verdict::Approve), Verdict::Close);
    EXPECT_EQ(Pop(queue, Verdict::Approve), Verdict::Approve);
}

}  // namespace
}  // namespace cert_approver::interactors
