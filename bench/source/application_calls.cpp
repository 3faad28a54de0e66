#include "application_calls.h"

#include <filesystem>
#include <semaphore>
#include <stdexcept>
#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <component/app_manager/create_application_manager.h>
#include <component/app_manager/i_application_commands.h>
#include <component/app_manager/i_application_controller.h>
#include <component/app_manager/i_application_manager.h>
#include <component/app_manager/i_application_watchdog.h>
#include <component/app_manager/tvo_ipc/application_commands.h>
#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/app_manager/tvo_ipc/limits.h>
#include <component/app_manager/tvo_ipc/service_names.h>
#include <component/logger/tvo_logger.h>
#include <shared/common/tvo/service/i_service_loop.h>
#include <support/manager_process.h>
#include <tvo/task.h>
#include <xo/handle.h>
#include <xo/notice.h>

#include "runtime_folder.h"
#include "server_line.h"

namespace tvo::bench {
namespace {

using namespace app_manager;
using tvo::service::Outcome;
using tvo::service::ServiceCall;

constexpr char Name[] = "pings";

void Check(bool isDone, const char* what)
{
    if (!isDone)
    {
        throw std::runtime_error(what);
    }
}

std::shared_ptr<IApplicationManager> ConnectToManager()
{
    ::tvo::logger::TVOLogger::Setup("BENCH", ::tvo::logger::LogLevel::Warning, nullptr);
    auto manager = CreateApplicationManager(Name);
    Check(manager != nullptr, "no application manager");
    return manager;
}

/// The socket on which the application finds this process, since neither has started the other.
class Line
{
public:
    Line() : m_listener(Make())
    {
        const sockaddr_un address = Address();
        Check(
            ::bind(m_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                ::listen(m_listener, 1) == 0,
            "no line for the application");
    }

    ~Line()
    {
        ::close(m_end);
        ::close(m_listener);
        std::filesystem::remove(Path());
    }

    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    void WaitForApplication()
    {
        m_end = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    }

    /// Tells the number and waits for one.
    void Ask(int number) const
    {
        Check(::send(m_end, &number, sizeof number, MSG_NOSIGNAL) == sizeof number &&
                  ::recv(m_end, &number, sizeof number, 0) == sizeof number,
              "the application has gone");
    }

    /// For the application: makes the other end its `ServerSocket`.
    static void Connect()
    {
        const sockaddr_un address = Address();
        const int end = Make();
        Check(::connect(end, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                  ::dup2(end, ServerSocket) == ServerSocket,
              "nobody waits for the application");
    }

private:
    static int Make()
    {
        return ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    }

    static std::string Path()
    {
        return RuntimeFolderPath() + "/line";
    }

    static sockaddr_un Address()
    {
        sockaddr_un address{AF_UNIX, {}};
        Path().copy(address.sun_path, sizeof(address.sun_path) - 1);
        return address;
    }

    const int m_listener;
    int m_end = -1;
};

std::string ApplicationTable()
{
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    return "[[application]]\nname = \"" + std::string(Name) + "\"\ncommand = [\"" + program +
           "\", \"--serve\", \"pings\"]\nping_limit = 600\n";
}

class Pings final : public Contender
{
public:
    Pings()
    {
        m_line.WaitForApplication();
        m_manager.WaitUntilReady(Name);
    }

    void Run(int count) override
    {
        m_line.Ask(count);
    }

private:
    Line m_line;
    support::ManagerProcess m_manager{RuntimeFolderPath(), "en-US", {}, ApplicationTable()};
};

/// The callback gives the next word, so no thread but that of the updates is woken.
class Commands final : public Contender
{
public:
    Commands()
    {
        m_callback = m_subscriber->RegisterCallback([this] { m_left-- > 1 ? Tell() : Finish(); });
    }

    ~Commands() override
    {
        m_subscriber->UnregisterCallback(m_callback);
    }

    Commands(const Commands&) = delete;
    Commands& operator=(const Commands&) = delete;

    void Run(int count) override
    {
        m_left = count;
        Tell();
        m_isDone.acquire();
    }

private:
    void Tell() const
    {
        m_manager.Tell(0);
    }

    void Finish()
    {
        m_isDone.release();
    }

    const ServerLine m_manager{{"commands"}};
    const std::shared_ptr<ICommandChangedSubscriber> m_subscriber =
        std::dynamic_pointer_cast<ICommandChangedSubscriber>(
            ConnectToManager()->GetApplicationCommands());
    int m_left = 0;
    std::binary_semaphore m_isDone{0};
    CallbackId m_callback = 0;
};

Outcome GiveHandle(const ServiceCall& call, std::uint32_t waiter)
{
    using Response = vx_app_manager_ApplicationCommands_GetUpdateHandle_res;
    auto& response = call.Response<Response>();
    response.base.size |= Response::Handles << WzMessageHandleCountShift;
    response.handle.handle = waiter;
    return Outcome::Answer;
}

}  // namespace

std::unique_ptr<Contender> MakePings()
{
    return std::make_unique<Pings>();
}

std::unique_ptr<Contender> MakeCommands()
{
    return std::make_unique<Commands>();
}

void ServePings(const std::vector<std::string>& /*arguments*/)
{
    Line::Connect();
    const auto manager = ConnectToManager();
    const auto watchdog = manager->GetApplicationWatchdog();
    Check(manager->GetApplicationController()->ReadyToShowUI(Name) == 0, "not ready");
    for (;;)
    {
        const int count = AwaitOwner();
        for (int i = 0; i < count; ++i)
        {
            Check(watchdog->Ping(Name) == 0, "a ping was refused");
        }
        TellOwner(count);
    }
}

void ServeCommands(const std::vector<std::string>& /*arguments*/)
{
    const TvoComponentTree tree{"vx.vdi.AppManager", nullptr, 0, nullptr, 0};
    Check(TvoTaskSetComponentTree(TvoTaskGetSelf(), &tree) == 0, "no component tree");
    std::uint32_t setter = XoInvalidHandle;
    std::uint32_t waiter = XoInvalidHandle;
    Check(XoEventCreate(&setter, &waiter) == 0, "no event object");
    const auto loop = tvo::service::CreateServiceLoop();
    for (const auto& [name, riid] :
         {std::pair(service_names::Controller, service_names::ControllerRiid),
          std::pair(service_names::Commands, service_names::CommandsRiid),
          std::pair(service_names::Watchdog, service_names::WatchdogRiid)})
    {
        loop->Serve(
            {.name = name,
             .interfaceName = service_names::Type,
             .riid = riid,
             .largestRequest = sizeof(vx_app_manager_name_req),
             .largestResponse = sizeof(vx_app_manager_ApplicationCommands_GetUpdateHandle_res),
             .requestArena = limits::NameArena},
            {.serve = [waiter](const ServiceCall& call)
             {
                 return GiveHandle(call, waiter);
             }});
    }
    const std::jthread words(
        [setter]
        {
            for (;;)
            {
                AwaitOwner();
                XoNoticeSetObjectEvent(setter, update_events::CommandChanged);
            }
        });
    ReportReady();
    loop->Run();
}

}  // namespace tvo::bench
