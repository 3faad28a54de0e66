#include <support/terminal_session.h>

namespace support {

namespace {

std::string ApplicationTable(const std::string& keys)
{
    const std::string name = '"' + std::string(TerminalSession::Application) + '"';
    // Qt's Wayland plugin leaves some of its objects to the end of the process, where a sanitizer
    // would turn them into an exit status.
    return "[[application]]\nname = " + name + "\ncommand = [" + name + "]\n" +
           "environment = { LSAN_OPTIONS = \"detect_leaks=0\" }\n" +
           "restart_delay = 0.05\nrestart_delay_max = 0.1\n" + keys;
}

}  // namespace

TerminalSession::TerminalSession(const TerminalSetup& setup)
    : m_display(Folder() / "wayland", QSize(1280, 800)),
      m_manager(Folder(),
                setup.language,
                TerminalEnvironment(Folder()),
                ApplicationTable(setup.application))
{
    m_manager.WaitUntilReady(Application);
}

Compositor& TerminalSession::Display()
{
    return m_display;
}

ManagerProcess& TerminalSession::Manager()
{
    return m_manager;
}

pid_t TerminalSession::Approver() const
{
    return static_cast<pid_t>(m_manager.StatusOf(Application).pid);
}

void TerminalSession::WaitForNextApprover(pid_t former)
{
    m_manager.WaitUntilReady(Application, former);
}

void TerminalSession::RestartApprover()
{
    const pid_t former = Approver();
    m_manager.Send(Application, app_manager::control::Command::Restart);
    WaitForNextApprover(former);
}

std::filesystem::path TerminalSession::Folder() const
{
    return m_folder.path().toStdString();
}

std::map<std::string, std::string> TerminalEnvironment(const std::filesystem::path& folder)
{
    return {{"XDG_RUNTIME_DIR", folder},
            {"WAYLAND_DISPLAY", folder / "wayland"},
            {"QT_QPA_PLATFORM", "wayland"},
            {"QT_QUICK_BACKEND", "software"},
            {"FONTCONFIG_FILE", TVO_FONTCONFIG_FILE},
            {"TZ", "UTC"}};
}

std::unique_ptr<Process> StartCaller(const std::vector<std::string>& arguments,
                                     const std::string& input)
{
    return std::make_unique<Process>(Process::Command{TVO_CERT_APPROVE, arguments, {}, input});
}

}  // namespace support
