#include "terminal/managed_child.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/logger/logger.h>

#include "system/journal_stream.h"

namespace app_manager::service {
namespace {

using control::Kind;
using control::State;
using Afterwards = SupervisedChild::Afterwards;

/// What the manager's own supervisor has told the manager is not for its children.
const std::string ForTheManagerOnly[] = {"NOTIFY_SOCKET", "WATCHDOG_PID", "WATCHDOG_USEC"};

bool IsSameProgram(const ChildConfig& one, const ChildConfig& other)
{
    return one.program == other.program && one.arguments == other.arguments &&
           one.variables == other.variables && one.provides == other.provides;
}

}  // namespace

ManagedChild::ManagedChild(ChildConfig config,
                           tvo::service::IServiceLoop& loop,
                           ITerminalOfChild& terminal)
    : m_loop(loop), m_terminal(terminal), m_supervision(std::move(config), *this)
{}

ManagedChild::~ManagedChild() = default;

bool ManagedChild::MayStart() const
{
    return m_terminal.MayStart(m_supervision.Config());
}

std::uint32_t ManagedChild::Start()
{
    const ChildConfig& config = m_supervision.Config();
    const JournalStream journal(config.name);
    tvo::service::ChildProgram program{
        config.program, config.arguments, config.variables, journal.Descriptor()};
    program.variables.insert(
        program.variables.end(), std::begin(ForTheManagerOnly), std::end(ForTheManagerOnly));
    if (journal.Descriptor() >= 0)
    {
        program.variables.push_back(journal.Variable());
    }
    m_process = m_loop.StartChild(program, [this](const auto& end) { OnEnded(end); });
    if (config.kind == Kind::Application)
    {
        m_commands.emplace();
    }
    for (const std::string& need : config.needs)
    {
        m_needs[need] = m_terminal.StartsOfReadyService(need);
    }
    return m_process->Pid();
}

void ManagedChild::OnEnded(const tvo::service::ChildEnd& end)
{
    m_process.reset();
    m_commands.reset();
    m_needs.clear();
    m_supervision.OnEnded(m_terminal.Now(), end);
}

void ManagedChild::Close()
{
    m_commands->Set(commands::CloseWindow);
}

void ManagedChild::Terminate()
{
    m_process->Terminate();
}

void ManagedChild::Abort()
{
    m_process->Abort();
}

void ManagedChild::Kill()
{
    m_process->Kill();
}

void ManagedChild::Reconfigure(ChildConfig config)
{
    const bool isSame = IsSameProgram(config, m_supervision.Config());
    const State state = m_supervision.State();
    m_supervision.SetConfig(std::move(config));
    // What comes after a stop was decided when that was asked for.
    if (!isSame && state != State::Closed && state != State::Stopping)
    {
        TVO_LOG_INFO("{}: its configuration has changed", Name());
        m_supervision.Stop(m_terminal.Now(), Afterwards::AtOnce, "its configuration has changed");
    }
}

void ManagedChild::LookWhetherServed()
{
    if (m_supervision.State() == State::Starting && !m_supervision.Config().provides.empty() &&
        m_process->Serves(m_supervision.Config().provides))
    {
        m_supervision.OnReady(m_terminal.Now());
    }
}

void ManagedChild::CloseWithoutNeeds()
{
    if (!m_supervision.IsUp())
    {
        return;
    }
    for (const auto& [need, starts] : m_needs)
    {
        const auto& needs = m_supervision.Config().needs;
        if (std::find(needs.begin(), needs.end(), need) != needs.end() &&
            m_terminal.StartsOfReadyService(need) != starts)
        {
            TVO_LOG_INFO("{}: closed, since it needs {}", Name(), need);
            m_supervision.Stop(m_terminal.Now(),
                               Afterwards::AtOnce,
                               fmt::format("it needs {}, which has ended", need));
            return;
        }
    }
}

}  // namespace app_manager::service
