#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <QProcess>
#include <sys/types.h>

namespace support {

/// How long a test waits for something that is going to happen. Long enough for a loaded machine
/// and sanitizers, since a test that passes never waits it out.
inline constexpr std::chrono::seconds Patience{30};

/// Waits until others have brought it about. @returns false when the time is up
[[nodiscard]] bool Comes(const std::function<bool()>& condition);

/// @returns the number that the variable holds, or the other one where it is not set
[[nodiscard]] std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise);

/// A child process whose output is kept. The destructor kills it; it also dies with the thread that
/// started it, which is the only one that may use the object.
class Process final
{
public:
    struct Command
    {
        std::filesystem::path program;
        std::vector<std::string> arguments;
        /// Added to the environment of the test; an entry of the same name is replaced.
        std::map<std::string, std::string> environment;
        /// What the child reads from its standard input before it finds the end.
        std::string input;
    };

    /// @throws std::runtime_error if the program cannot be started.
    explicit Process(const Command& command);
    ~Process();

    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    [[nodiscard]] pid_t Id() const;

    /// Kills it with SIGKILL and waits until it is gone.
    void Kill();

    [[nodiscard]] bool Runs();

    /// Waits for the end. @returns the exit status, -1 after a signal or if it still runs.
    [[nodiscard]] int ExitStatus();

    /// Waits until the text stands in what the process has written to either stream.
    /// @returns false if the process ended without it or the time is up.
    [[nodiscard]] bool WaitForText(const std::string& text);

    /// What it has written so far; everything once it has ended.
    [[nodiscard]] std::string Output();
    [[nodiscard]] std::string Errors();

private:
    void Collect();

    QProcess m_process;
    pid_t m_id = -1;
    std::string m_output;
    std::string m_errors;
};

}  // namespace support
