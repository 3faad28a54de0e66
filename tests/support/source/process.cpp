#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include <QDeadlineTimer>
#include <sys/prctl.h>

#include <support/process.h>

namespace support {

bool Comes(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(Patience);
    bool holds = condition();
    while (!holds && !deadline.hasExpired())
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        holds = condition();
    }
    return holds;
}

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise)
{
    const char* text = std::getenv(name);
    return text != nullptr ? static_cast<std::uint32_t>(std::stoul(text)) : otherwise;
}

Process::Process(const Command& command)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : command.environment)
    {
        environment.insert(QString::fromStdString(name), QString::fromStdString(value));
    }
    QStringList arguments;
    for (const std::string& argument : command.arguments)
    {
        arguments.append(QString::fromStdString(argument));
    }
    m_process.setProcessEnvironment(environment);
    // Waits wake for this stream; what programs say of themselves goes there.
    m_process.setReadChannel(QProcess::StandardError);
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_process.start(QString::fromStdString(command.program.string()), arguments);
    if (!m_process.waitForStarted())
    {
        throw std::runtime_error("Cannot start " + command.program.string());
    }
    m_id = static_cast<pid_t>(m_process.processId());
    m_process.write(command.input.data(), static_cast<qint64>(command.input.size()));
    while (m_process.bytesToWrite() > 0 && m_process.waitForBytesWritten())
    {}
    m_process.closeWriteChannel();
}

Process::~Process()
{
    Kill();
}

pid_t Process::Id() const
{
    return m_id;
}

void Process::Kill()
{
    m_process.kill();
    m_process.waitForFinished(-1);
}

bool Process::Runs()
{
    return m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(0);
}

int Process::ExitStatus()
{
    m_process.waitForFinished(std::chrono::milliseconds(Patience).count());
    const bool exited = !Runs() && m_process.exitStatus() == QProcess::NormalExit;
    return exited ? m_process.exitCode() : -1;
}

bool Process::WaitForText(const std::string& text)
{
    // For the stream that does not wake it; each wait takes in both.
    constexpr int SliceMs = 20;
    const QDeadlineTimer deadline(Patience);
    const auto stands = [&]
    {
        return (Output() + '\n' + Errors()).find(text) != std::string::npos;
    };
    while (!stands() && Runs() && !deadline.hasExpired())
    {
        m_process.waitForReadyRead(SliceMs);
    }
    return stands();
}

std::string Process::Output()
{
    Collect();
    return m_output;
}

std::string Process::Errors()
{
    Collect();
    return m_errors;
}

void Process::Collect()
{
    // QProcess looks into the pipes only while it waits.
    m_process.waitForFinished(0);
    m_output += m_process.readAllStandardOutput().toStdString();
    m_errors += m_process.readAllStandardError().toStdString();
}

}  // namespace support
