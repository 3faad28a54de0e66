#include "process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <tvo/task.h>
#include <xo/result.h>

#include "handle_table.h"
#include "lock_file.h"
#include "names.h"
#include "rendezvous.h"

namespace platform {
namespace {

/// Holds all signals back, so that none is handled between fork and exec.
class SignalsHeldBack final
{
public:
    SignalsHeldBack()
    {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &m_former);
    }
    ~SignalsHeldBack()
    {
        ::pthread_sigmask(SIG_SETMASK, &m_former, nullptr);
    }
    SignalsHeldBack(const SignalsHeldBack&) = delete;
    SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

private:
    sigset_t m_former;
};

void ResetSignals()
{
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    for (int signal = 1; signal < NSIG; ++signal)
    {
        ::sigaction(signal, &action, nullptr);
    }
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// What this process has open is not the child's; the pipe closes by itself as the child goes on.
void SetDescriptors(int output)
{
    if (output >= 0)
    {
        ::dup2(output, STDOUT_FILENO);
        ::dup2(output, STDERR_FILENO);
    }
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
}

/// In the child. Only what is safe in a signal handler may be called: another thread may have held
/// any lock at the fork.
[[noreturn]] void Become(const TvoProgram& program, pid_t parent, int failurePipe)
{
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent)
    {
        ::_exit(EXIT_FAILURE);
    }
    SetDescriptors(program.output);
    TvoTaskRestoreDescriptorLimit();
    ResetSignals();
    ::execve(program.path,
             const_cast<char* const*>(program.arguments),
             program.variables != nullptr ? const_cast<char* const*>(program.variables) : environ);
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(failurePipe, &error, sizeof error);
    ::_exit(EXIT_FAILURE);
}

pid_t Fork(const TvoProgram& program, int failurePipe)
{
    const SignalsHeldBack heldBack;
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child == 0)
    {
        Become(program, parent, failurePipe);
    }
    return child;
}

/// Waits until the child has become its program.
/// @returns 0, or the error with which it has failed
int AwaitExec(int failurePipe)
{
    int error = 0;
    ssize_t size = -1;
    do
    {
        size = ::read(failurePipe, &error, sizeof error);
    } while (size < 0 && errno == EINTR);
    return size == sizeof error ? error : 0;
}

int ToResult(int error)
{
    switch (error)
    {
        case EAGAIN:
        case EMFILE:
        case ENFILE:
        case ENOMEM:
            return XoNoResources;
        case E2BIG:
            return XoInvalidArgument;
        default:
            return XoObjectGone;
    }
}

int ToNumber(TvoProcessSignal signal)
{
    switch (signal)
    {
        case TvoProcessSignal::Terminate:
            return SIGTERM;
        case TvoProcessSignal::Abort:
            return SIGABRT;
        case TvoProcessSignal::Kill:
            break;
    }
    return SIGKILL;
}

/// Sends it to the group, and to a child that has left that.
void SendToAll(pid_t child, int signal)
{
    ::kill(-child, signal);
    if (::getpgid(child) != child)
    {
        ::kill(child, signal);
    }
}

void End(pid_t child)
{
    ::kill(child, SIGKILL);
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR)
    {}
}

}  // namespace

std::shared_ptr<Process> Process::Start(const TvoProgram& program, int& result)
{
    result = XoNoResources;
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0)
    {
        return nullptr;
    }
    const Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    const pid_t child = Fork(program, writing.Get());
    if (child < 0)
    {
        return nullptr;
    }
    writing.Reset();
    const int error = AwaitExec(reading.Get());
    Descriptor descriptor(error == 0 ? static_cast<int>(::syscall(SYS_pidfd_open, child, 0)) : -1);
    if (!descriptor)
    {
        result = ToResult(error != 0 ? error : errno);
        End(child);
        return nullptr;
    }
    result = XoOk;
    return std::make_shared<Process>(child, std::move(descriptor));
}

Process::Process(pid_t pid, Descriptor descriptor)
    : Object(ObjectKind::Process), m_pid(pid), m_descriptor(std::move(descriptor))
{}

int Process::Send(TvoProcessSignal signal)
{
    const std::lock_guard lock(m_mutex);
    // While its end is not fetched, nobody else can have its number.
    if (m_end)
    {
        return XoObjectGone;
    }
    SendToAll(m_pid, ToNumber(signal));
    if (signal == TvoProcessSignal::Abort)
    {
        SendToAll(m_pid, SIGCONT);
    }
    return XoOk;
}

int Process::Serves(const char* server)
{
    const std::lock_guard lock(m_mutex);
    const auto name = EncodeName(server);
    const int folder =
        m_end || !name ? -1 : Rendezvous::Instance().Open(Place::Servers, Purpose::Look);
    if (folder < 0)
    {
        return XoObjectGone;
    }
    const auto lines = ReadHeldLockFile(folder, *name);
    const auto isOfGroup = [this](const LockFileLine& line)
    {
        const auto pid = static_cast<pid_t>(line.number);
        return line.kind == LockFileLine::Kind::Process &&
               (pid == m_pid || ::getpgid(pid) == m_pid);
    };
    const auto isService = [](const LockFileLine& line)
    {
        return line.kind == LockFileLine::Kind::Service;
    };
    return lines && std::any_of(lines->begin(), lines->end(), isOfGroup) &&
                   std::any_of(lines->begin(), lines->end(), isService)
               ? XoOk
               : XoTimedOut;
}

int Process::GetEnd(TvoProcessEnd& end)
{
    const std::lock_guard lock(m_mutex);
    if (!m_end)
    {
        siginfo_t info{};
        const int options = WEXITED | WNOHANG;
        if (::waitid(P_PID, static_cast<id_t>(m_pid), &info, options | WNOWAIT) != 0)
        {
            return XoObjectGone;
        }
        if (info.si_pid == 0)
        {
            return XoTimedOut;
        }
        // Before its number is free, which is the group's too.
        ::kill(-m_pid, SIGKILL);
        ::waitid(P_PID, static_cast<id_t>(m_pid), &info, options);
        m_end = TvoProcessEnd{info.si_status, info.si_code == CLD_EXITED ? 0U : 1U};
    }
    end = *m_end;
    return XoOk;
}

}  // namespace platform

using namespace platform;

int TvoProcessStart(const TvoProgram* program, std::uint32_t* handle, std::uint32_t* pid)
{
    *handle = XoInvalidHandle;
    *pid = 0;
    if (program == nullptr || program->path == nullptr || program->arguments == nullptr ||
        program->arguments[0] == nullptr)
    {
        return XoInvalidArgument;
    }
    int result = XoOk;
    const auto process = Process::Start(*program, result);
    if (process == nullptr)
    {
        return result;
    }
    *handle = HandleTable::Instance().Add(process);
    if (*handle == XoInvalidHandle)
    {
        process->Send(TvoProcessSignal::Kill);
        End(process->Pid());
        return XoNoResources;
    }
    *pid = static_cast<std::uint32_t>(process->Pid());
    return XoOk;
}

int TvoProcessSend(std::uint32_t handle, TvoProcessSignal signal)
{
    const auto process = HandleTable::Instance().Find<Process>(handle);
    return process != nullptr ? process->Send(signal) : XoObjectGone;
}

int TvoProcessServes(std::uint32_t handle, const char* server)
{
    const auto process = HandleTable::Instance().Find<Process>(handle);
    return process != nullptr ? process->Serves(server) : XoObjectGone;
}

int TvoProcessGetEnd(std::uint32_t handle, TvoProcessEnd* end)
{
    const auto process = HandleTable::Instance().Find<Process>(handle);
    return process != nullptr ? process->GetEnd(*end) : XoObjectGone;
}
