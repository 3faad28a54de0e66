#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include <support/terminal_session.h>

#include "number_reader.h"

namespace soak {

/// The one who sits at the screen: reads whom a dialog is about, and presses keys.
class Person final
{
public:
    explicit Person(support::TerminalSession& terminal);

    /// Waits for the dialog of the number made of that digit alone, and learns to read the digit.
    void Learn(std::uint32_t digit);

    /// Waits for a dialog that has not been answered.
    /// @returns its number. @throws std::runtime_error when the time is up.
    std::uint32_t WaitForNumber();

    /// Answers the dialog of that number, which is up, by pressing each key once.
    void Press(std::uint32_t number, const std::vector<std::uint32_t>& keys);

private:
    void WaitFor(const std::function<bool(const QImage&)>& accepts);

    support::TerminalSession& m_terminal;
    NumberReader m_reader;
    std::optional<std::uint32_t> m_answered;
};

}  // namespace soak
