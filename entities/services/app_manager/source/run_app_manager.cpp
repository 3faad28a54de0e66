#include "run_app_manager.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>

#include <component/logger/logger.h>
#include <component/plk/process_exception.h>
#include <shared/common/tvo/service/i_service_loop.h>
#include <shared/common/utils/bad_use.h>
#include <shared/common/utils/platform_log.h>

#include "config/config_reader.h"
#include "front/manager_service.h"
#include "options.h"
#include "system/notifier.h"
#include "terminal/terminal.h"

namespace app_manager::service {
namespace {

using tvo::logger::LogLevel;

constexpr int Failed = 1;
constexpr int WrongUse = 2;

/// The folder of this very program, in which the terminal's other programs stand.
std::string ProgramFolder()
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
}

Instant Present()
{
    return {std::chrono::steady_clock::now(),
            std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now())};
}

/// Holds the wish to reload back until the loop takes it, for it would end the program before.
void HoldReloadBack()
{
    sigset_t reload;
    ::sigemptyset(&reload);
    ::sigaddset(&reload, SIGHUP);
    ::pthread_sigmask(SIG_BLOCK, &reload, nullptr);
}

/// Tells that the manager is busy with a reload for as long as it exists.
class ReloadNotice final
{
public:
    explicit ReloadNotice(INotifier& notifier) : m_notifier(notifier)
    {
        m_notifier.Reloading();
    }
    ~ReloadNotice()
    {
        m_notifier.Ready();
    }
    ReloadNotice(const ReloadNotice&) = delete;
    ReloadNotice& operator=(const ReloadNotice&) = delete;

private:
    INotifier& m_notifier;
};

void Reload(Terminal& terminal, INotifier& notifier, const Options& options)
{
    std::optional<ReloadNotice> notice;
    // Who is still told to wait would take its end for the terminal's first readiness.
    if (terminal.WasReady())
    {
        notice.emplace(notifier);
    }
    try
    {
        terminal.Configure(ReadConfig(options.config, ProgramFolder()));
        TVO_LOG_INFO("{} was read again", options.config);
    }
    catch (const ConfigError& error)
    {
        TVO_LOG_ERROR("The configuration stays as it was: {}", error.what());
    }
}

int Serve(const Options& options, const std::vector<ChildConfig>& children)
{
    Notifier notifier;
    const auto loop = tvo::service::CreateServiceLoop();
    Terminal terminal(*loop, notifier, &Present);
    ManagerService service(*loop, terminal);
    loop->OnTermination([&] { terminal.Stop(); });
    loop->OnReload([&] { Reload(terminal, notifier, options); });
    terminal.Configure(children);
    TVO_LOG_INFO("The terminal of {} is started", options.config);
    terminal.Settle();
    const int code = loop->Run();
    TVO_LOG_INFO("The terminal has ended with code {}", code);
    return code == 0 ? 0 : Failed;
}

int Run(const Options& options)
{
    const auto children = ReadConfig(options.config, ProgramFolder());
    if (options.isCheck)
    {
        std::printf("%s: %zu to run\n", options.config.c_str(), children.size());
        return 0;
    }
    return Serve(options, children);
}

}  // namespace

int RunAppManager(int argc, const char* const* argv)
{
    std::signal(SIGPIPE, SIG_IGN);  // whoever reads the log may go
    HoldReloadBack();
    tvo::logger::TVOLogger::Setup("APP_MNGR", LogLevel::Info, nullptr);
    ::common::utils::LogPlatformLines();
    try
    {
        const Options options = ParseOptions(argc, argv);
        if (!options.help.empty())
        {
            std::fputs(options.help.c_str(), stdout);
            return 0;
        }
        return Run(options);
    }
    catch (const ::common::utils::BadUse& error)
    {
        std::fprintf(stderr, "app_manager: %s\n", error.what());
        return WrongUse;
    }
    catch (const ConfigError& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
        return WrongUse;
    }
    catch (...)
    {
        TVO_LOG_CRITICAL("{}", plk::utils::ProcessException().second);
        return Failed;
    }
}

}  // namespace app_manager::service
