#pragma once

#include <csignal>
#include <initializer_list>

#include "descriptor.h"
#include "waitable.h"

namespace platform {

/// Signals as something to wait for. They are held back in the thread that makes this, and in those
/// it starts, as long as this lives.
class AwaitedSignals final : public Waitable
{
public:
    explicit AwaitedSignals(std::initializer_list<int> numbers);
    ~AwaitedSignals() override;
    AwaitedSignals(const AwaitedSignals&) = delete;
    AwaitedSignals& operator=(const AwaitedSignals&) = delete;

    int WaitDescriptor() const override
    {
        return m_signals.Get();
    }

    /// Uses up what has come.
    void Reported() override;

private:
    sigset_t m_heldBack;  ///< those that were not before
    Descriptor m_signals;
};

}  // namespace platform
