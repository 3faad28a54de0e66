#include <filesystem>
#include <stdexcept>

#include <support/terminal_session.h>

namespace support {

TerminalSession::TerminalSession(const std::string& language)
    : m_display(Folder() / "wayland", QSize(1280, 800)), m_settings(Folder(), language)
{
    StartApprover();
}

TerminalSession::~TerminalSession() = default;

Compositor& TerminalSession::Display()
{
    return m_display;
}

SettingsService& TerminalSession::Settings()
{
    return m_settings;
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

void TerminalSession::StartApprover()
{
    const Process::Command command{TVO_CERT_APPROVER, {}, TerminalEnvironment(Folder()), {}};
    m_approver.reset();
    m_approver = std::make_unique<Process>(command);
    if (!m_approver->WaitForText("CertApprover is ready"))
    {
        throw std::runtime_error("The application is not ready:\n" + m_approver->Errors());
    }
}

std::map<std::string, std::string> TerminalEnvironment(const std::filesystem::path& folder)
{
    return {{"TVO_RUNTIME_DIR", folder},
            {"XDG_RUNTIME_DIR", folder},
            {"WAYLAND_DISPLAY", folder / "wayland"},
            {"QT_QPA_PLATFORM", "wayland"},
            {"QT_QUICK_BACKEND", "software"},
            {"FONTCONFIG_FILE", TVO_FONTCONFIG_FILE},
            {"TZ", "UTC"}};
}

std::unique_ptr<Process> StartCaller(const std::filesystem::path& runtimeFolder,
                                     const std::vector<std::string>& arguments,
                                     const std::string& input)
{
    return std::make_unique<Process>(
        Process::Command{TVO_CERT_APPROVE, arguments, {{"TVO_RUNTIME_DIR", runtimeFolder}}, input});
}

}  // namespace support
