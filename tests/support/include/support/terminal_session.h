#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <QTemporaryDir>

#include <support/compositor.h>
#include <support/manager_process.h>
#include <support/process.h>

namespace support {

struct TerminalSetup
{
    std::string language = "en-US";
    /// What the configuration says of the application beside its name and program.
    std::string application = "needs = [\"settings\"]\ncommands = [\"hide\", \"close\"]\n";
};

/// A running terminal: a compositor with a screen of 1280 x 800 and app_manager, which has started
/// the settings service and the approval application, ready to be asked. One at a time.
class TerminalSession final
{
public:
    static constexpr char Application[] = "cert_approver";

    /// @throws std::runtime_error, with what was written, if it does not become ready.
    explicit TerminalSession(const TerminalSetup& setup = {});

    [[nodiscard]] Compositor& Display();
    [[nodiscard]] ManagerProcess& Manager();

    /// The process of the application.
    [[nodiscard]] pid_t Approver() const;

    /// Waits until the application is ready again, in another process than this.
    void WaitForNextApprover(pid_t former);

    /// Has the manager end the application and start it anew.
    void RestartApprover();

    /// A folder for the test's own files; gone with the session.
    [[nodiscard]] std::filesystem::path Folder() const;

private:
    QTemporaryDir m_folder;
    Compositor m_display;
    ManagerProcess m_manager;
};

/// What a program of a terminal finds in its environment: the display at the folder's "wayland",
/// the fonts.
[[nodiscard]] std::map<std::string, std::string> TerminalEnvironment(
    const std::filesystem::path& folder);

/// Starts cert_approve, whether a terminal runs or not.
[[nodiscard]] std::unique_ptr<Process> StartCaller(const std::vector<std::string>& arguments,
                                                   const std::string& input = {});

}  // namespace support
