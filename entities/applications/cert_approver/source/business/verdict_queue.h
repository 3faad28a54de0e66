#pragma once

#include <condition_variable>
#include <list>
#include <mutex>

#include <component/cert_approver/verdict.h>

namespace cert_approver::interactors {

/// A first-in first-out queue of verdicts whose reader waits. Without a bound; any thread.
class VerdictQueue
{
public:
    /// Appends a verdict and wakes the readers; a closed queue drops it.
    void Push(Verdict verdict);

    /// Takes the oldest verdict, waiting for one without a limit. An empty closed queue returns at
    /// once and leaves `verdict` as it is.
    void Pop(Verdict& verdict);

    /// Ends all waiting, for good. Nothing in the application does this: a reader takes a return
    /// without a verdict for its own preset, which is approval.
    void Close();

private:
    std::mutex m_mutex;
    std::condition_variable m_notEmpty;
    bool m_closed = false;
    std::list<Verdict> m_items;
};

}  // namespace cert_approver::interactors
