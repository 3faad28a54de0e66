#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <QTemporaryDir>

#include <support/compositor.h>
#include <support/process.h>

namespace tvo::bench {

/// A screen with one program in front of it.
class WindowStage
{
public:
    WindowStage();

    /// Starts the program, which finds a terminal's environment, this process's rendezvous and a
    /// cache folder that lasts as long as the stage. One that was started before is killed.
    void Start(const std::filesystem::path& program,
               const std::vector<std::string>& arguments = {});

    /// @throws std::runtime_error  if the dialog does not come up
    void WaitForDialog();

    /// Presses Escape.
    void Refuse();

    /// Waits until the program has nothing to do any more.
    void WaitForRest();

    void WaitForNoWindow();

    /// Kills the program and waits until its window is gone.
    void Clear();

    std::filesystem::path Folder() const;

    /// What the program has written to standard error.
    std::string Errors();

private:
    bool IsBusy() const;

    QTemporaryDir m_folder;
    support::Compositor m_display;
    std::unique_ptr<support::Process> m_program;
};

}  // namespace tvo::bench
