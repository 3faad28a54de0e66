#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>

#include "descriptor.h"
#include "object.h"

namespace platform {

class NoticeSet;

/// The waiting end of an event object: a socket from which masks of 32 bits are read.
class EventWaiter final : public Object
{
public:
    static constexpr ObjectKind HandleKind = ObjectKind::EventWaiter;

    explicit EventWaiter(Descriptor socket);

    /// Takes a descriptor that came in a message.
    /// @returns null when it is no waiting end
    static std::shared_ptr<EventWaiter> FromForeign(Descriptor descriptor);

    int Socket() const
    {
        return m_socket.Get();
    }

    /// Everything that has been set and not read yet.
    struct Reading
    {
        std::uint32_t bits = 0;
        bool ended = false;
    };
    Reading ReadAll() const;

    /// Leaves no shutdown behind: the other processes that hold this end go on using it.
    void Close() override;

    /// One subscription at a time.
    /// @returns false when there is one, or the handle was closed
    bool Bind(std::weak_ptr<NoticeSet> set, std::uint64_t key);
    void Unbind(std::uint64_t key);

private:
    const Descriptor m_socket;
    std::mutex m_mutex;
    bool m_closed = false;
    std::weak_ptr<NoticeSet> m_set;
    std::uint64_t m_key = 0;  ///< of the subscription; 0: none
};

/// The setting end. Holds a duplicate of the waiting one, to empty it when it is full.
class EventSetter final : public Object
{
public:
    static constexpr ObjectKind HandleKind = ObjectKind::EventSetter;

    EventSetter(Descriptor socket, const std::shared_ptr<EventWaiter>& waiter);

    /// False when no descriptor was left for the duplicate.
    bool IsWhole() const
    {
        return static_cast<bool>(m_duplicate);
    }

    /// Never blocks and loses no bit.
    int Set(std::uint32_t mask);

    void Close() override;

private:
    const Descriptor m_socket;
    const Descriptor m_duplicate;
    std::mutex m_mutex;
};

}  // namespace platform
