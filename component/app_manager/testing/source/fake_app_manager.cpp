#include <algorithm>
#include <array>
#include <bit>
#include <csignal>

#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <component/app_manager/testing/fake_app_manager.h>
#include <component/app_manager/tvo_ipc/application_commands.h>
#include <component/app_manager/tvo_ipc/application_controller.h>
#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/app_manager/tvo_ipc/limits.h>
#include <component/app_manager/tvo_ipc/service_names.h>
#include <shared/common/tvo/service/i_service_loop.h>
#include <tvo/task.h>
#include <xo/notice.h>

namespace app_manager::testing {

namespace {

using tvo::service::Outcome;
using tvo::service::ServiceCall;

/// The child. It looks for commands every other millisecond, so that one thread does it all.
class Manager final
{
public:
    explicit Manager(int socket) : m_socket(socket)
    {
        const TvoComponentTree tree{"vx.vdi.AppManager", nullptr, 0, nullptr, 0};
        ZIN_CHECK_RESULT(TvoTaskSetComponentTree(TvoTaskGetSelf(), &tree), "");
        using namespace service_names;
        for (const auto& [name, riid] : {std::pair{std::string(Controller), ControllerRiid},
                                         {Commands, CommandsRiid},
                                         {Watchdog, WatchdogRiid}})
        {
            m_loop->Serve({.name = name,
                           .interfaceName = Type,
                           .riid = riid,
                           .largestRequest = 48,
                           .largestResponse = 40,
                           .requestArena = limits::ErrorArena},
                          {.serve = [this](const ServiceCall& call)
                           {
                               return Handle(call);
                           }});
        }
    }

    void Run()
    {
        const auto start = m_loop->After(std::chrono::milliseconds(0), [this] { Say("serves"); });
        const auto timer = m_loop->Every(std::chrono::milliseconds(2), [this] { TakeCommand(); });
        m_loop->Run();
    }

private:
    Outcome Handle(const ServiceCall& call)
    {
        static const std::vector<std::string> methods[] = {{},
                                                           {"StartApplication",
                                                            "ReadyToInitialize",
                                                            "ReadyToShowUI",
                                                            "FinishWithInternalError",
                                                            "StateChanged"},
                                                           {"GetUpdateHandle", "GetCommand"},
                                                           {"Ping"}};
        const std::string& method = methods[call.request->iid].at(call.request->mid);
        Say(Line(call, method));
        if (method == "GetUpdateHandle")
        {
            auto& response =
                call.Response<vx_app_manager_ApplicationCommands_GetUpdateHandle_res>();
            response.base.size |= 1U << WzMessageHandleCountShift;
            XoEventCreate(&m_setter, &response.handle.handle);
        }
        else if (method == "GetCommand")
        {
            call.Response<vx_app_manager_ApplicationCommands_GetCommand_res>().command = m_command;
        }
        else
        {
            call.Response<vx_app_manager_result_res>();
        }
        return Outcome::Answer;
    }

    /// Three texts, a text and a number, or a text alone: the size tells.
    static std::string Line(const ServiceCall& call, std::string line)
    {
        const auto* fields = reinterpret_cast<const tvo::ipc::arena::Reference*>(call.request + 1);
        for (int i = 0; i < (call.request->size == 48 ? 3 : 1); ++i)
        {
            line += " " + std::string(ReadText(*call.requestArena, fields[i]).value_or("?"));
        }
        return call.request->size == 40
                   ? line + " " + std::to_string(std::bit_cast<std::int64_t>(fields[1]))
                   : line;
    }

    void TakeCommand()
    {
        if (::recv(m_socket, &m_command, sizeof(m_command), MSG_DONTWAIT) == sizeof(m_command))
        {
            XoNoticeSetObjectEvent(m_setter, update_events::CommandChanged);
        }
    }

    void Say(const std::string& line)
    {
        ::send(m_socket, line.data(), line.size(), MSG_NOSIGNAL);
    }

    int m_socket;
    std::unique_ptr<tvo::service::IServiceLoop> m_loop = tvo::service::CreateServiceLoop();
    std::int64_t m_command = 0;
    std::uint32_t m_setter = XoInvalidHandle;
};

/// Never comes back into the test that the child was forked from, not by an exception either.
[[noreturn]] void RunManager(int socket) noexcept
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    Manager(socket).Run();
    ::_exit(0);
}

}  // namespace

FakeAppManager::FakeAppManager()
{
    std::array<int, 2> sockets{};
    ::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets.data());
    m_pid = ::fork();
    if (m_pid == 0)
    {
        ::close(sockets[0]);
        RunManager(sockets[1]);
    }
    ::close(sockets[1]);
    m_socket = sockets[0];
    Receive();
    m_calls.clear();
}

FakeAppManager::~FakeAppManager()
{
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
    ::close(m_socket);
}

void FakeAppManager::SetCommand(std::int64_t command)
{
    ::send(m_socket, &command, sizeof(command), MSG_NOSIGNAL);
}

std::vector<std::string> FakeAppManager::Calls()
{
    while (Receive(0))
    {}
    return m_calls;
}

bool FakeAppManager::WaitForCall(std::string_view line)
{
    while (std::ranges::count(m_calls, line) == 0)
    {
        if (!Receive())
        {
            return false;
        }
    }
    return true;
}

/// @returns false when nothing comes in time, or the child is gone and all was read
bool FakeAppManager::Receive(int patienceMs)
{
    std::array<char, 1024> line;
    pollfd entry{m_socket, POLLIN, 0};
    ::poll(&entry, 1, patienceMs);
    const ssize_t size = ::recv(m_socket, line.data(), line.size(), MSG_DONTWAIT);
    if (size > 0)
    {
        m_calls.emplace_back(line.data(), static_cast<std::size_t>(size));
    }
    return size > 0;
}

}  // namespace app_manager::testing
