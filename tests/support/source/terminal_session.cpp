#include <filesystem>
#include <stdexcept>

#include <support/terminal_session.h>

namespace support {

TerminalSession::TerminalSession(const std::string& language)
    : m_display(Folder() / "wayland", QSize(1280, 800))
{
    StartApprover(language);
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

void TerminalSession::StartApprover(const std::string& language)
{
    const Process::Command command{TVO_CERT_APPROVER,
                                   {},
                                   {{"TVO_RUNTIME_DIR", Folder()},
                                    {"TVO_LANGUAGE", language},
                                    {"XDG_RUNTIME_DIR", Folder()},
                                    {"WAYLAND_DISPLAY", Folder() / "wayland"},
                                    {"QT_QPA_PLATFORM", "wayland"},
                                    {"QT_QUICK_BACKEND", "software"},
                                    {"FONTCONFIG_FILE", TVO_FONTCONFIG_FILE},
                                    {"TZ", "UTC"}},
                                   {}};
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
