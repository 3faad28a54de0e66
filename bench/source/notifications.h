#pragma once

#include <string>

#include "contender.h"
#include "server_line.h"

namespace tvo::bench {

/// Writes, and waits each time until an observer in another process has been told and says so.
/// @tparam Writer  has `Write()`, each of which is one change
template <typename Writer>
class Notifications final : public Contender
{
public:
    /// @param observer   the server that observes
    /// @param arguments  the writer's
    template <typename... Arguments>
    explicit Notifications(const std::string& observer, const Arguments&... arguments)
        : m_writer(arguments...), m_observer({observer})
    {}

    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            m_writer.Write();
            m_observer.Await();
        }
    }

    /// One that is told twice of a change would have been waited for too briefly.
    void Rest() override
    {
        m_observer.CheckSilent();
    }

private:
    Writer m_writer;
    const ServerLine m_observer;
};

}  // namespace tvo::bench
