#pragma once

#include <stdexcept>
#include <string>

namespace tvoctl {

/// What the program ends with.
enum class ExitStatus
{
    Done = 0,
    Refused = 1,    ///< the service has refused, or the output cannot be written
    BadUse = 2,     ///< wrong arguments or wrong input
    NoService = 4,  ///< the service is not there, or has gone before it answered
};

/// Ends the program with a status and one line of text.
class Failure final : public std::runtime_error
{
public:
    Failure(ExitStatus status, const std::string& text) : std::runtime_error(text), m_status(status)
    {}

    [[nodiscard]] ExitStatus Status() const noexcept
    {
        return m_status;
    }

private:
    ExitStatus m_status;
};

}  // namespace tvoctl
