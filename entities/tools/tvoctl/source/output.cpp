#include "output.h"

#include "failure.h"

namespace tvoctl {

void Output::Print(std::string_view text)
{
    const std::lock_guard lock(m_mutex);
    m_stream << text << '\n' << std::flush;
    if (!m_stream)
    {
        throw Failure(ExitStatus::Refused, "cannot write the output");
    }
}

void Output::Close(std::chrono::milliseconds limit)
{
    static_cast<void>(m_mutex.try_lock_for(limit));
}

}  // namespace tvoctl
