#include "child_watch.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include <unistd.h>

#include <component/plk/exceptions.h>
#include <tvo/process.h>
#include <xo/handle.h>
#include <xo/result.h>
#include <xo/sleep.h>

#include "guarded.h"

namespace tvo::service {
namespace {

std::string_view NameOf(std::string_view variable)
{
    return variable.substr(0, variable.find('='));
}

/// This process's environment with the variables added, or in place of those of the same name.
std::vector<const char*> Environment(const std::vector<std::string>& variables)
{
    std::vector<const char*> all;
    for (char** own = environ; *own != nullptr; ++own)
    {
        const auto replaces = [&](const std::string& variable)
        {
            return NameOf(variable) == NameOf(*own);
        };
        if (std::none_of(variables.begin(), variables.end(), replaces))
        {
            all.push_back(*own);
        }
    }
    for (const std::string& variable : variables)
    {
        if (variable.find('=') != std::string::npos)
        {
            all.push_back(variable.c_str());
        }
    }
    all.push_back(nullptr);
    return all;
}

std::uint32_t Start(const ChildProgram& program, std::uint32_t& pid)
{
    std::vector<const char*> arguments;
    for (const std::string& argument : program.arguments)
    {
        arguments.push_back(argument.c_str());
    }
    arguments.push_back(nullptr);
    const std::vector<const char*> variables = Environment(program.variables);
    const TvoProgram started{
        program.path.c_str(), arguments.data(), variables.data(), program.output};
    std::uint32_t handle = XoInvalidHandle;
    const int result = TvoProcessStart(&started, &handle, &pid);
    ZIN_CHECK_RESULT(result, "Cannot run " << program.path);
    return handle;
}

}  // namespace

ChildWatch::ChildWatch(const ChildProgram& program,
                       std::function<void(const ChildEnd& end)> ended,
                       std::function<void()> over)
    : m_handle(Start(program, m_pid)), m_ended(std::move(ended)), m_over(std::move(over))
{}

ChildWatch::~ChildWatch()
{
    XoHandleClose(m_handle);
}

void ChildWatch::KillAndAwait()
{
    TvoProcessSend(m_handle, TvoProcessSignal::Kill);
    TvoProcessEnd end{};
    while (TvoProcessGetEnd(m_handle, &end) == XoTimedOut)
    {
        XoSleep(1);
    }
}

void ChildWatch::OnReady(Amount /*amount*/)
{
    TvoProcessEnd end{};
    if (TvoProcessGetEnd(m_handle, &end) != XoOk)
    {
        return;
    }
    m_over();
    // Taken out first: the callback may let go of the child.
    if (const auto ended = std::exchange(m_ended, nullptr))
    {
        Guarded("a child's end", [&] { ended({end.bySignal == 0, end.status}); });
    }
}

Child::~Child()
{
    m_watch->Forget();
}

std::uint32_t Child::Pid() const
{
    return m_watch->Pid();
}

void Child::Terminate()
{
    TvoProcessSend(m_watch->Handle(), TvoProcessSignal::Terminate);
}

void Child::Kill()
{
    TvoProcessSend(m_watch->Handle(), TvoProcessSignal::Kill);
}

void Child::Abort()
{
    TvoProcessSend(m_watch->Handle(), TvoProcessSignal::Abort);
}

bool Child::Serves(const std::string& server) const
{
    return TvoProcessServes(m_watch->Handle(), server.c_str()) == XoOk;
}

}  // namespace tvo::service
