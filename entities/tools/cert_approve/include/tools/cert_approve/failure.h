#pragma once

#include <stdexcept>
#include <string>

namespace cert_approve {

/// What the program ends with.
enum class ExitStatus
{
    Approved = 0,
    Closed = 1,
    BadInput = 2,  ///< wrong use, or no usable certificate
    ServerUnreachable = 3,
    ServiceFailed = 4,  ///< the approval service is absent or did not answer
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

}  // namespace cert_approve
