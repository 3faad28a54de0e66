#include "terminal_starts.h"

#include <csignal>
#include <fstream>
#include <stdexcept>

#include <QTemporaryDir>

#include <support/terminal_session.h>

namespace tvo::bench {
namespace {

constexpr char Services[] = R"([[service]]
name = "settings"
command = ["settings_manager", "--memory"]
provides = "vx.settings_manager.PSmgr"
)";

constexpr char Application[] = R"([[application]]
name = "cert_approver"
command = ["cert_approver"]
needs = ["settings"]
)";

/// Something must be there that a manager starts.
constexpr char LeastService[] = R"([[service]]
name = "least"
command = ["/bin/sleep", "infinity"]
)";

/// A screen, and the programs in front of it.
class Starts : public Contender
{
public:
    explicit Starts(const std::string& configuration)
    {
        std::ofstream(Folder() / "terminal.toml") << configuration;
    }

    void Rest() override
    {
        for (; !m_programs.empty(); m_programs.pop_back())
        {
            ::kill(m_programs.back()->Id(), SIGTERM);
            static_cast<void>(m_programs.back()->ExitStatus());
        }
    }

protected:
    void StartManager()
    {
        Start(TVO_BENCH_APP_MANAGER,
              {"--config", Folder() / "terminal.toml"},
              "The terminal is ready");
    }

    void Start(const char* program, const std::vector<std::string>& arguments, const char* isReady)
    {
        auto environment = support::TerminalEnvironment(Folder());
        environment["XDG_CACHE_HOME"] = Folder() / "cache";
        m_programs.push_back(std::make_unique<support::Process>(
            support::Process::Command{program, arguments, environment, {}}));
        if (!m_programs.back()->WaitForText(isReady))
        {
            throw std::runtime_error("not ready: " + m_programs.back()->Errors());
        }
    }

private:
    std::filesystem::path Folder() const
    {
        return m_folder.path().toStdString();
    }

    QTemporaryDir m_folder;
    support::Compositor m_display{Folder() / "wayland", QSize(1280, 800)};
    std::vector<std::unique_ptr<support::Process>> m_programs;
};

class TerminalStarts final : public Starts
{
public:
    TerminalStarts() : Starts(Services + std::string(Application)) {}

    void Run(int /*count*/) override
    {
        StartManager();
    }
};

class ProgramStarts final : public Starts
{
public:
    ProgramStarts() : Starts(LeastService) {}

    void Run(int /*count*/) override
    {
        StartManager();
        Start(TVO_BENCH_SETTINGS_MANAGER, {"--memory"}, "is ready");
        Start(TVO_BENCH_CERT_APPROVER, {}, "CertApprover is ready");
    }
};

}  // namespace

std::unique_ptr<Contender> MakeTerminalStarts()
{
    return std::make_unique<TerminalStarts>();
}

std::unique_ptr<Contender> MakeProgramStarts()
{
    return std::make_unique<ProgramStarts>();
}

}  // namespace tvo::bench
