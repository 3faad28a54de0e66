#include <filesystem>
#include <stdexcept>

#include <support/terminal_session.h>

namespace support {

TerminalSession::TerminalSession() : TerminalSession(Options{}) {}

TerminalSession::TerminalSession(const Options& options)
    : m_display(Folder() / "wayland", options.screen)
{
    StartApprover(options.language);
}

TerminalSession::~TerminalSession() = default;

Compositor& TerminalSession::Display()
{
    return m_display;
}

Process& TerminalSession::Approver()
{
    return *m_approver;
}

std::filesystem::path TerminalSession::Folder() const
{
    return m_folder.path().toStdString();
}

std::unique_ptr<Process> TerminalSession::Ask(const std::vector<std::string>& arguments,
                                              const std::string& input) const
{
    return StartCaller(Folder(), arguments, input);
}

std::map<std::string, std::string> TerminalSession::Environment() const
{
    return {{"TVO_RUNTIME_DIR", Folder()},
            {"XDG_RUNTIME_DIR", Folder()},
            {"WAYLAND_DISPLAY", Folder() / "wayland"},
            {"QT_QPA_PLATFORM", "wayland"},
            {"QT_QUICK_BACKEND", "software"},
            {"FONTCONFIG_FILE", TVO_FONTCONFIG_FILE},
            {"TZ", "UTC"}};
}

void TerminalSession::StartApprover(const std::string& language)
{
    Process::Command command{TVO_CERT_APPROVER, {}, Environment(), {}};
    command.environment["TVO_LANGUAGE"] = language;
    m_approver = std::make_unique<Process>(command);
    if (!m_approver->WaitForText("CertApprover is ready"))
    {
        throw std::runtime_error("The application is not ready:\n" + m_approver->Errors());
    }
}

std::unique_ptr<Process> StartCaller(const std::filesystem::path& runtimeFolder,
                                     const std::vector<std::string>& arguments,
                                     const std::string& input)
{
    return std::make_unique<Process>(
        Process::Command{TVO_CERT_APPROVE, arguments, {{"TVO_RUNTIME_DIR", runtimeFolder}}, input});
}

}  // namespace support
