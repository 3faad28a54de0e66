#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>

namespace plk {

/// A counting semaphore that starts at zero. Any thread may use it; the one that waited may destroy
/// it as soon as its `Wait` has returned.
class Semaphore
{
public:
    void Post();

    /// Blocks until the count is above zero and takes one off.
    void Wait();

private:
    std::mutex m_mutex;
    std::condition_variable m_posted;
    std::size_t m_count = 0;
};

}  // namespace plk
