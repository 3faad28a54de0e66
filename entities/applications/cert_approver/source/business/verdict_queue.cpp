#include "business/verdict_queue.h"

namespace cert_approver::interactors {

void VerdictQueue::Push(Verdict verdict)
{
    // Allocated and freed outside the lock.
    std::list<Verdict> item{verdict};
    {
        const std::lock_guard lock(m_mutex);
        if (!m_closed)
        {
            m_items.splice(m_items.end(), item);
        }
    }
    m_notEmpty.notify_all();
}

void VerdictQueue::Pop(Verdict& verdict)
{
    std::list<Verdict> item;
    {
        std::unique_lock lock(m_mutex);
        m_notEmpty.wait(lock, [this] { return !m_items.empty() || m_closed; });
        if (m_items.empty())
        {
            return;
        }
        item.splice(item.end(), m_items, m_items.begin());
    }
    verdict = item.front();
}

void VerdictQueue::Close()
{
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
    }
    m_notEmpty.notify_all();
}

}  // namespace cert_approver::interactors
