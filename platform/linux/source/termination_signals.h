#pragma once

#include <csignal>

#include "descriptor.h"
#include "waitable.h"

namespace platform {

/// SIGTERM and SIGINT as something to wait for. They are held back in the thread that makes this,
/// and in those it starts, as long as this lives.
class TerminationSignals final : public Waitable
{
public:
    TerminationSignals();
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    int WaitDescriptor() const override
    {
        return m_signals.Get();
    }

    /// Uses up what has come.
    void Reported() override;

private:
    sigset_t m_former;
    Descriptor m_signals;
};

}  // namespace platform
