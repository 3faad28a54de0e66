#include "event_object.h"

#include <array>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <xo/notice.h>

#include "handle_table.h"
#include "notice_set.h"

namespace platform {
namespace {

constexpr std::size_t MasksAtOnce = 16;

// More than a full socket holds; a foreign setter that never stops must not hold its reader.
constexpr int MaxRounds = 64;

int SocketOption(int socket, int option)
{
    int value = -1;
    socklen_t size = sizeof value;
    return ::getsockopt(socket, SOL_SOCKET, option, &value, &size) == 0 ? value : -1;
}

/// Reads until the socket is empty or has ended; a foreign end may hold anything.
EventWaiter::Reading Drain(int socket)
{
    EventWaiter::Reading reading;
    std::array<std::uint32_t, MasksAtOnce> masks{};
    std::array<iovec, MasksAtOnce> data{};
    std::array<mmsghdr, MasksAtOnce> messages{};
    for (std::size_t i = 0; i < MasksAtOnce; ++i)
    {
        data[i] = {&masks[i], sizeof masks[i]};
        messages[i].msg_hdr.msg_iov = &data[i];
        messages[i].msg_hdr.msg_iovlen = 1;
    }
    for (int round = 0; round < MaxRounds; ++round)
    {
        const int count = ::recvmmsg(socket, messages.data(), MasksAtOnce, MSG_DONTWAIT, nullptr);
        if (count < 0 && (errno == EINTR || errno == ECONNRESET))
        {
            continue;
        }
        if (count < 0)
        {
            reading.ended |= errno != EAGAIN;
            break;
        }
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        {
            // Only whole masks count; nothing at all is the end of the stream.
            const bool whole = messages[i].msg_len == sizeof masks[i] &&
                               (messages[i].msg_hdr.msg_flags & MSG_TRUNC) == 0;
            reading.bits |= whole ? masks[i] : 0;
            reading.ended |= messages[i].msg_len == 0;
        }
        if (reading.ended || count < static_cast<int>(MasksAtOnce))
        {
            break;
        }
    }
    reading.bits &= ~XoEventClosed;
    return reading;
}

}  // namespace

EventWaiter::EventWaiter(Descriptor socket)
    : Object(ObjectKind::EventWaiter), m_socket(std::move(socket))
{}

std::shared_ptr<EventWaiter> EventWaiter::FromForeign(Descriptor descriptor)
{
    const bool fits = SocketOption(descriptor.Get(), SO_TYPE) == SOCK_SEQPACKET &&
                      SocketOption(descriptor.Get(), SO_DOMAIN) == AF_UNIX &&
                      SocketOption(descriptor.Get(), SO_ACCEPTCONN) == 0;
    return fits ? std::make_shared<EventWaiter>(std::move(descriptor)) : nullptr;
}

EventWaiter::Reading EventWaiter::ReadAll() const
{
    return Drain(m_socket.Get());
}

void EventWaiter::Close()
{
    std::unique_lock lock(m_mutex);
    m_closed = true;
    const std::uint64_t key = std::exchange(m_key, 0);
    const std::shared_ptr<NoticeSet> set = m_set.lock();
    lock.unlock();
    if (key != 0 && set != nullptr)
    {
        set->EndSubscription(key);
    }
}

bool EventWaiter::Bind(std::weak_ptr<NoticeSet> set, std::uint64_t key)
{
    const std::lock_guard lock(m_mutex);
    if (m_closed || m_key != 0)
    {
        return false;
    }
    m_set = std::move(set);
    m_key = key;
    return true;
}

void EventWaiter::Unbind(std::uint64_t key)
{
    const std::lock_guard lock(m_mutex);
    if (m_key == key)
    {
        m_key = 0;
    }
}

EventSetter::EventSetter(Descriptor socket, const std::shared_ptr<EventWaiter>& waiter)
    : Object(ObjectKind::EventSetter),
      m_socket(std::move(socket)),
      m_duplicate(::fcntl(waiter->Socket(), F_DUPFD_CLOEXEC, 0))
{}

int EventSetter::Set(std::uint32_t mask)
{
    const std::lock_guard lock(m_mutex);
    for (;;)
    {
        if (::send(m_socket.Get(), &mask, sizeof mask, MSG_NOSIGNAL | MSG_DONTWAIT) >= 0)
        {
            return XoOk;
        }
        switch (errno)
        {
            case EINTR:
                break;
            case EAGAIN:
                mask |= Drain(m_duplicate.Get()).bits;
                break;
            case ENOBUFS:
            case ENOMEM:
                return XoNoResources;
            default:
                return XoObjectGone;
        }
    }
}

void EventSetter::Close()
{
    ::shutdown(m_socket.Get(), SHUT_RDWR);
}

}  // namespace platform

using namespace platform;

int XoEventCreate(std::uint32_t* setter, std::uint32_t* waiter)
{
    *setter = XoInvalidHandle;
    *waiter = XoInvalidHandle;
    int ends[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
    {
        return XoNoResources;
    }
    Descriptor setting(ends[0]);
    auto waitingEnd = std::make_shared<EventWaiter>(Descriptor(ends[1]));
    auto settingEnd = std::make_shared<EventSetter>(std::move(setting), waitingEnd);
    if (!settingEnd->IsWhole())
    {
        return XoNoResources;
    }
    HandleTable& table = HandleTable::Instance();
    *setter = table.Add(std::move(settingEnd));
    *waiter = table.Add(std::move(waitingEnd));
    if (*waiter == XoInvalidHandle)
    {
        table.Close(std::exchange(*setter, XoInvalidHandle));
        return XoNoResources;
    }
    return XoOk;
}

int XoNoticeSetObjectEvent(std::uint32_t handle, std::uint32_t mask)
{
    if (mask == 0 || (mask & XoEventClosed) != 0)
    {
        return XoInvalidArgument;
    }
    HandleTable& table = HandleTable::Instance();
    if (const auto setter = table.Find<EventSetter>(handle))
    {
        return setter->Set(mask);
    }
    return table.Find<EventWaiter>(handle) != nullptr ? XoInvalidArgument : XoObjectGone;
}
