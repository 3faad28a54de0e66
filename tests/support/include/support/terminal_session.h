#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <QTemporaryDir>

#include <support/compositor.h>
#include <support/process.h>
#include <support/settings_service.h>

namespace support {

/// A running terminal in a folder of its own, mode 0700: a compositor with a screen of 1280 x 800,
/// the settings service and the approval application, ready to be asked. The destructor takes
/// everything down again.
class TerminalSession final
{
public:
    /// @throws std::runtime_error, with what it wrote, if the application does not become ready.
    explicit TerminalSession(const std::string& language = "en-US");
    ~TerminalSession();

    [[nodiscard]] Compositor& Display();
    [[nodiscard]] SettingsService& Settings();
    [[nodiscard]] Process& Approver();

    /// Starts the application anew; one that still runs is killed.
    /// @throws std::runtime_error, with what it wrote, if it does not become ready.
    void StartApprover();

    /// A folder for the test's own files; gone with the session.
    [[nodiscard]] std::filesystem::path Folder() const;

    /// Starts cert_approve as a caller of this terminal.
    [[nodiscard]] std::unique_ptr<Process> Ask(const std::vector<std::string>& arguments,
                                               const std::string& input = {}) const;

private:
    QTemporaryDir m_folder;
    Compositor m_display;
    SettingsService m_settings;
    std::unique_ptr<Process> m_approver;
};

/// What a program of a terminal finds in its environment: the display at the folder's "wayland",
/// the rendezvous, the fonts.
[[nodiscard]] std::map<std::string, std::string> TerminalEnvironment(
    const std::filesystem::path& folder);

/// Starts cert_approve where TVO_RUNTIME_DIR is the folder, whether a terminal runs there or not.
[[nodiscard]] std::unique_ptr<Process> StartCaller(const std::filesystem::path& runtimeFolder,
                                                   const std::vector<std::string>& arguments,
                                                   const std::string& input = {});

}  // namespace support
