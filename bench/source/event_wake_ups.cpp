#include "event_wake_ups.h"

#include <cstring>
#include <stdexcept>

#include <wz/message.h>
#include <wz/transport.h>
#include <xo/handle.h>
#include <xo/notice.h>

#include "connection_name.h"
#include "server_process.h"

namespace tvo::bench {
namespace {

constexpr std::uint32_t Bit = 0x10;
constexpr std::uint32_t NoLimit = 0xFFFFFFFFU;

/// A message that brings the waiting end of an event object.
struct Invitation
{
    wz_message header;
    wz_handle_slot waiter;
};

constexpr std::uint32_t InvitationSize = sizeof(Invitation) | 1U << WzMessageHandleCountShift;

void Check(int result, const char* what)
{
    if (result != 0)
    {
        throw std::runtime_error(what + (" failed with " + std::to_string(result)));
    }
}

struct EventObject
{
    EventObject()
    {
        Check(XoEventCreate(&setter, &waiter), "making an event object");
    }

    std::uint32_t setter = XoInvalidHandle;
    std::uint32_t waiter = XoInvalidHandle;
};

/// The waiting end of the other side's event object.
class Waiter
{
public:
    explicit Waiter(std::uint32_t handle)
    {
        Check(XoNoticeCreate(&m_notice), "making a notice");
        Check(XoNoticeSubscribeToObject(m_notice, handle, Bit, 1), "subscribing");
    }

    ~Waiter()
    {
        XoNoticeRelease(m_notice);
    }

    Waiter(const Waiter&) = delete;
    Waiter& operator=(const Waiter&) = delete;

    void Wait() const
    {
        EventDesc event{};
        unsigned long received = 0;
        Check(XoNoticeGetEvent(m_notice, NoLimit, 1, &event, &received), "waiting");
        if (event.events != Bit)
        {
            throw std::runtime_error("the other side has gone");
        }
    }

private:
    SNotice* m_notice = nullptr;
};

/// Both sides' ends: the own waiting end goes over with the call, the other's comes with the reply.
Waiter Exchange(const std::string& name, const EventObject& own)
{
    const Connection connection(name);
    WzTvoTransport transport;
    WzTvoTransport_Init(&transport, connection.Handle(), nullptr, 0);
    const Invitation request{{1, 0, InvitationSize, {}}, {own.waiter, {}}};
    Invitation reply{{1, 0, InvitationSize, {}}, {}};
    Check(transport.operations->call(&transport, &request.header, nullptr, &reply.header, nullptr),
          "exchanging event objects");
    return Waiter(reply.waiter.handle);
}

class WakeUps final : public Contender
{
public:
    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            Check(XoNoticeSetObjectEvent(m_own.setter, Bit), "setting a bit");
            m_other.Wait();
        }
    }

private:
    const std::string m_name = UnusedConnectionName();
    const ServerProcess m_server{{"event_wake_ups", m_name}};
    const EventObject m_own;
    const Waiter m_other = Exchange(m_name, m_own);
};

}  // namespace

std::unique_ptr<Contender> MakeEventWakeUps()
{
    return std::make_unique<WakeUps>();
}

void ServeEventWakeUps(const std::vector<std::string>& arguments)
{
    WzTvoTransport transport;
    WzTvoTransport_Init(&transport, ServeConnectionName(arguments.at(0)), nullptr, 0);
    const EventObject own;
    ReportReady();

    Invitation request{{0, 0, InvitationSize, {}}, {}};
    Check(transport.operations->receive(&transport, &request.header, nullptr), "receiving");
    const Waiter other(request.waiter.handle);
    const Invitation reply{{1, 0, InvitationSize, {}}, {own.waiter, {}}};
    Check(transport.operations->reply(&transport, &reply.header, nullptr), "replying");
    for (;;)
    {
        other.Wait();
        Check(XoNoticeSetObjectEvent(own.setter, Bit), "setting a bit");
    }
}

}  // namespace tvo::bench
