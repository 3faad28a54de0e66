#include <cstring>
#include <stdexcept>

#include <unistd.h>

#include <shared/common/tvo/entity/component_dispatcher.h>
#include <wz/message.h>
#include <wz/transport.h>

#include "connection_name.h"
#include "server_process.h"
#include "sizes.h"
#include "terminal_calls.h"

namespace tvo::bench {
namespace {

constexpr std::uint16_t Riid = 1;
constexpr std::uint32_t ReceiveTimeout = 500;

struct Request
{
    wz_message header;
    unsigned char fields[SmallRequestBytes - sizeof(wz_message)];
};

struct Response
{
    wz_message header;
    unsigned char fields[SmallReplyBytes - sizeof(wz_message)];
};

struct Nothing
{};

bool Answer(Nothing* /*component*/,
            std::uint16_t riid,
            const wz_message* request,
            const wz_arena* /*requestArena*/,
            wz_message* response,
            wz_arena* /*responseArena*/)
{
    response->iid = request->iid;
    response->mid = request->mid;
    response->size = sizeof(Response);
    return request->iid == riid;
}

using Dispatcher = ::tvo::entity::
    ComponentDispatcher<Nothing, Request, Response, Answer, LargeBytes, SmallReplyBytes>;

class Calls final : public Contender
{
public:
    Calls(std::size_t arenaBytes, int connections)
        : m_server({"echo", m_name}), m_bytes(arenaBytes, 'a')
    {
        for (int i = 0; i < connections; ++i)
        {
            m_connections.push_back(std::make_unique<Connection>(m_name));
        }
        // One from the middle: neither the first nor the last that the server knows.
        WzTvoTransport_Init(
            &m_transport, m_connections[m_connections.size() / 2]->Handle(), nullptr, 0);
    }

    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            Call();
        }
    }

private:
    void Call()
    {
        Request request{};
        request.header.iid = Riid;
        request.header.size = sizeof request;
        Response response{};
        response.header.size = sizeof response;
        unsigned char* const end = m_bytes.data() + m_bytes.size();
        const wz_arena arena{m_bytes.data(), end, end};
        const int result = m_transport.operations->call(
            &m_transport, &request.header, &arena, &response.header, nullptr);
        if (result != 0)
        {
            throw std::runtime_error("a call failed with " + std::to_string(result));
        }
    }

    const std::string m_name = UnusedConnectionName();
    const ServerProcess m_server;
    std::vector<unsigned char> m_bytes;
    std::vector<std::unique_ptr<Connection>> m_connections;
    WzTvoTransport m_transport{};
};

}  // namespace

std::unique_ptr<Contender> MakeSmallCalls(int connections)
{
    return std::make_unique<Calls>(SmallArenaBytes, connections);
}

std::unique_ptr<Contender> MakeLargeCalls()
{
    return std::make_unique<Calls>(LargeBytes, 1);
}

void ServeEcho(const std::vector<std::string>& arguments)
{
    const std::uint32_t endpoint = ServeConnectionName(arguments.at(0));
    Dispatcher dispatcher(Riid, endpoint, ReceiveTimeout, std::make_shared<Nothing>());
    dispatcher.Start();
    ReportReady();
    for (;;)
    {
        ::pause();
    }
}

}  // namespace tvo::bench
