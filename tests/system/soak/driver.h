#pragma once

#include <cstdint>
#include <functional>
#include <random>

#include <support/terminal_session.h>

#include "caller_pool.h"
#include "ledger.h"
#include "person.h"

namespace soak {

/// A terminal with callers, eight at a time, and the person who answers them with keys chosen at
/// random; what was meant for whom goes to the ledger.
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
    [[nodiscard]] const Ledger::Counts& Sum() const;

private:
    bool HappensOnceIn(int times);
    void StartCaller(std::uint32_t number);
    void FillUp();
    void AnswerNext();
    void AnswerAll();
    void PressFor(std::uint32_t number);
    void Kill(std::uint32_t number);
    std::uint32_t AnyAlive();
    /// Takes all that are there.
    void TakeReports();
    /// Takes reports until it holds. @throws std::runtime_error when none comes any more
    void TakeReportsUntil(const std::function<bool()>& holds);

    std::mt19937 m_random;
    support::TerminalSession m_terminal;
    CallerPool m_callers;
    Person m_person{m_terminal};
    Ledger m_ledger;
    std::uint32_t m_lastStarted = 0;
    int m_answered = 0;
};

}  // namespace soak
