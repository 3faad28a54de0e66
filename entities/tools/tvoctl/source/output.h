#pragma once

#include <chrono>
#include <mutex>
#include <ostream>
#include <string_view>

namespace tvoctl {

/// The program's results, line by line. Any thread may print.
class Output
{
public:
    explicit Output(std::ostream& stream) : m_stream(stream) {}

    /// Prints a line, or several, and a line end, and hands all of it on at once.
    /// @throws Failure  Refused when it cannot be written
    void Print(std::string_view text);

    /// Lets a line that is being printed come to its end and keeps all others back for good.
    void Close(std::chrono::milliseconds limit);

private:
    std::ostream& m_stream;
    std::timed_mutex m_mutex;
};

}  // namespace tvoctl
