#include "bus_calls.h"

#include <stdexcept>

#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include "bus_daemon.h"
#include "runtime_folder.h"
#include "server_process.h"
#include "sizes.h"

namespace tvo::bench {
namespace {

constexpr char Name[] = "net.vantelore.Bench";
constexpr char Path[] = "/net/vantelore/Bench";

int Check(int result, const char* what)
{
    if (result < 0)
    {
        throw std::runtime_error(what + (" failed with " + std::to_string(result)));
    }
    return result;
}

struct CloseBus
{
    void operator()(sd_bus* bus) const
    {
        sd_bus_close(bus);
        sd_bus_unref(bus);
    }
};

using Bus = std::unique_ptr<sd_bus, CloseBus>;

Bus NewBus()
{
    sd_bus* bus = nullptr;
    Check(sd_bus_new(&bus), "making a bus");
    return Bus(bus);
}

class Calls : public Contender
{
public:
    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            Call();
        }
    }

protected:
    explicit Calls(Bus bus) : m_bus(std::move(bus)) {}

private:
    void Call()
    {
        sd_bus_message* call = nullptr;
        Check(sd_bus_message_new_method_call(m_bus.get(), &call, Name, Path, Name, "Ask"),
              "a call");
        Check(sd_bus_message_append_array(call, 'y', m_fields.data(), m_fields.size()), "append");
        Check(sd_bus_message_append_array(call, 'y', m_texts.data(), m_texts.size()), "append");
        sd_bus_message* reply = nullptr;
        Check(sd_bus_call(m_bus.get(), call, UINT64_MAX, nullptr, &reply), "calling");
        const void* bytes = nullptr;
        std::size_t size = 0;
        Check(sd_bus_message_read_array(reply, 'y', &bytes, &size), "reading");
        sd_bus_message_unref(reply);
        sd_bus_message_unref(call);
    }

    const Bus m_bus;
    // Of the fixed part, only the fields: the header's work is done by the bus's own.
    const std::vector<char> m_fields = std::vector<char>(SmallRequestBytes - 24, 'f');
    const std::vector<char> m_texts = std::vector<char>(SmallArenaBytes, 't');
};

int Answer(sd_bus_message* call, void* /*data*/, sd_bus_error* /*error*/)
{
    const void* bytes = nullptr;
    std::size_t size = 0;
    Check(sd_bus_message_read_array(call, 'y', &bytes, &size), "reading");
    Check(sd_bus_message_read_array(call, 'y', &bytes, &size), "reading");
    sd_bus_message* reply = nullptr;
    Check(sd_bus_message_new_method_return(call, &reply), "a reply");
    const char answer[SmallReplyBytes - 24] = {};
    Check(sd_bus_message_append_array(reply, 'y', answer, sizeof answer), "append");
    Check(sd_bus_send(nullptr, reply, nullptr), "replying");
    sd_bus_message_unref(reply);
    return 1;
}

[[noreturn]] void Serve(sd_bus* bus)
{
    Check(sd_bus_add_object(bus, nullptr, Path, Answer, nullptr), "adding the object");
    ReportReady();
    for (;;)
    {
        if (Check(sd_bus_process(bus, nullptr), "serving") == 0)
        {
            Check(sd_bus_wait(bus, UINT64_MAX), "waiting");
        }
    }
}

/// The two ends of a connection without a bus; the server's end is closed here when it has it.
struct SocketPair
{
    SocketPair()
    {
        Check(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), "making a socket pair");
    }

    ~SocketPair()
    {
        ::close(ends[1]);
    }

    int ends[2];
};

Bus BusOn(int socket)
{
    Bus bus = NewBus();
    Check(sd_bus_set_fd(bus.get(), socket, socket), "taking the socket");
    Check(sd_bus_start(bus.get()), "starting");
    return bus;
}

class PeerCalls final : private SocketPair, public Calls
{
public:
    PeerCalls() : Calls(BusOn(ends[0])), m_server({"peer_bus"}, ends[1]) {}

private:
    const ServerProcess m_server;
};

Bus BusAt(const std::string& address)
{
    Bus bus = NewBus();
    Check(sd_bus_set_address(bus.get(), address.c_str()), "taking the address");
    Check(sd_bus_set_bus_client(bus.get(), 1), "becoming a client");
    Check(sd_bus_start(bus.get()), "starting");
    return bus;
}

class DaemonCalls final : private BusDaemon, public Calls
{
public:
    DaemonCalls()
        : BusDaemon(RuntimeFolderPath()),
          Calls(BusAt(Address())),
          m_server({"daemon_bus", Address()})
    {}

private:
    const ServerProcess m_server;
};

}  // namespace

std::unique_ptr<Contender> MakePeerBusCalls()
{
    return std::make_unique<PeerCalls>();
}

std::unique_ptr<Contender> MakeDaemonBusCalls()
{
    return std::make_unique<DaemonCalls>();
}

void ServePeerBus(const std::vector<std::string>& /*arguments*/)
{
    const Bus bus = NewBus();
    sd_id128_t id;
    Check(sd_id128_randomize(&id), "making an id");
    Check(sd_bus_set_fd(bus.get(), ServerSocket, ServerSocket), "taking the socket");
    Check(sd_bus_set_server(bus.get(), 1, id), "becoming a server");
    Check(sd_bus_start(bus.get()), "starting");
    Serve(bus.get());
}

void ServeDaemonBus(const std::vector<std::string>& arguments)
{
    const Bus bus = BusAt(arguments.at(0));
    Check(sd_bus_request_name(bus.get(), Name, 0), "taking the name");
    Serve(bus.get());
}

}  // namespace tvo::bench
