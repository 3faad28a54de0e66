#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include <xo/handle.h>

#include "object.h"

namespace platform {

/// The handles of the process. A handle is a slot number with the slot's generation above it, so a
/// stale handle is told from a new one in the same slot; slots are reused as late as possible.
/// May be used from any thread; lives until the process ends.
class HandleTable final
{
public:
    static HandleTable& Instance();

    /// @returns the new handle, or `XoInvalidHandle` when there is no slot left
    std::uint32_t Add(std::shared_ptr<Object> object);

    /// @returns the object, or null when the handle is not open or of another kind
    template <typename T>
    std::shared_ptr<T> Find(std::uint32_t handle)
    {
        std::shared_ptr<Object> object = Find(handle, T::HandleKind);
        return std::static_pointer_cast<T>(std::move(object));
    }

    int Close(std::uint32_t handle);

private:
    struct Slot
    {
        std::shared_ptr<Object> object;
        std::uint32_t generation = 1;
    };

    HandleTable();
    std::shared_ptr<Object> Find(std::uint32_t handle, ObjectKind kind);
    Slot* FindSlot(std::uint32_t handle);
    void Grow();

    std::mutex m_mutex;
    std::vector<Slot> m_slots;
    std::deque<std::uint32_t> m_free;
};

}  // namespace platform
