#pragma once

#include <functional>
#include <utility>

#include "guarded.h"
#include "i_source.h"

namespace tvo::service {

/// Something that only says that it has happened; the wait itself uses it up.
class SignalSource final : public ISource
{
public:
    /// @param what  names the callback in log lines
    SignalSource(const char* what, std::function<void()> callback)
        : m_what(what), m_callback(std::move(callback))
    {}

    void OnReady(Amount /*amount*/) override
    {
        Guarded(m_what, m_callback);
    }

private:
    const char* const m_what;
    const std::function<void()> m_callback;
};

}  // namespace tvo::service
