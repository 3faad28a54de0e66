#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <random>

#include <support/terminal_session.h>

#include "callers.h"
#include "number_reader.h"

namespace soak {

/// A terminal with callers, eight at a time, and the person who answers them with keys chosen at
/// random; what was meant for whom is noted.
class Driver final
{
public:
    /// Learns to read. @throws std::runtime_error if no dialog comes up.
    explicit Driver(std::uint32_t seed);

    /// Answers that many dialogs; callers are killed at random meanwhile.
    /// @throws std::runtime_error if a dialog or a report does not come
    void Answer(int dialogs);

    /// Lets no caller in until all have been answered and no dialog can come any more.
    void Drain();

    /// Kills the application while callers wait and a dialog is up, until it is there again.
    void KillApplication();

    [[nodiscard]] support::TerminalSession& Terminal();
    /// Dialogs so far, whether their callers lived to hear the answer or not.
    [[nodiscard]] int Answered() const;
    [[nodiscard]] const Callers::Counts& Sum() const;

private:
    bool HappensOnceIn(int times);
    void FillUp();
    void AnswerNext();
    void AnswerAll();
    /// Answers the dialog of that number, which is up, with the keys of an answer taken at random.
    void PressFor(std::uint32_t number);
    /// Waits for a dialog that has not been answered. @returns its number
    std::uint32_t WaitForNumber();
    /// Waits for such a picture. @throws std::runtime_error when the time is up
    void WaitFor(const std::function<bool(const QImage&)>& accepts);
    std::uint32_t AnyAlive();
    /// Takes reports until it holds. @throws std::runtime_error when none comes any more
    void TakeReportsUntil(const std::function<bool()>& holds);

    std::mt19937 m_random;
    support::TerminalSession m_terminal;
    Callers m_callers;
    NumberReader m_reader;
    std::uint32_t m_lastStarted = 0;
    std::optional<std::uint32_t> m_lastAnswered;
    int m_answered = 0;
};

}  // namespace soak
