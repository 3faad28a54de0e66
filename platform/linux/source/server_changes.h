#pragma once

#include <memory>

#include "descriptor.h"
#include "waitable.h"

namespace platform {

/// Changes in the rendezvous folder's servers as something to wait for: a name was taken, a service
/// published.
class ServerChanges final : public Waitable
{
public:
    /// @returns null when the folder is unusable or there is nothing left to watch it with
    static std::shared_ptr<ServerChanges> Make();

    explicit ServerChanges(Descriptor changes);

    int WaitDescriptor() const override
    {
        return m_changes.Get();
    }

    /// Uses up what has come.
    void Reported() override;

private:
    const Descriptor m_changes;
};

}  // namespace platform
