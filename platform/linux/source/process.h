#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include <sys/types.h>

#include <tvo/process.h>

#include "descriptor.h"
#include "object.h"
#include "waitable.h"

namespace platform {

/// A child of this process, until its end has been fetched and afterwards.
class Process final : public Object, public Waitable
{
public:
    static constexpr ObjectKind HandleKind = ObjectKind::Process;

    /// @param result  why nothing is returned
    static std::shared_ptr<Process> Start(const TvoProgram& program, int& result);

    Process(pid_t pid, Descriptor descriptor);

    pid_t Pid() const
    {
        return m_pid;
    }

    int Send(TvoProcessSignal signal);

    /// Whether a process of the group has published something under the server's name.
    int Serves(const char* server);

    int GetEnd(TvoProcessEnd& end);

    int WaitDescriptor() const override
    {
        return m_descriptor.Get();
    }

    void Close() override {}

private:
    const pid_t m_pid;
    const Descriptor m_descriptor;
    std::mutex m_mutex;
    std::optional<TvoProcessEnd> m_end;
};

}  // namespace platform
