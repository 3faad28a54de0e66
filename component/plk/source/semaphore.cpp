#include <component/plk/semaphore.h>

namespace plk {

void Semaphore::Post()
{
    // Notified under the lock: a waiter that has seen the count may destroy the semaphore.
    const std::lock_guard lock(m_mutex);
    ++m_count;
    m_posted.notify_one();
}

void Semaphore::Wait()
{
    std::unique_lock lock(m_mutex);
    m_posted.wait(lock, [this] { return m_count > 0; });
    --m_count;
}

}  // namespace plk
