#pragma once

#include <cstddef>

namespace tvoipc::api_v1 {

/// A line that is formatted only when somebody wants its text.
class ILogMessage
{
public:
    virtual ~ILogMessage() = default;

    /// @returns the zero-terminated text, owned by the message
    virtual const char* Text() = 0;

    /// Writes the zero-terminated text into the buffer, cut where it does not fit. A null buffer or
    /// one without room is left alone.
    virtual void Text(char* buffer, std::size_t size) = 0;

    /// @returns the text's length in bytes, without the terminator
    virtual std::size_t FormattedSize() = 0;
};

/// Receives the lines of the proxy layer.
class ILogger
{
public:
    enum class Verbosity : int
    {
        Error = 100,
    };

    virtual ~ILogger() = default;
    virtual void Print(Verbosity verbosity, ILogMessage& message) = 0;
};

}  // namespace tvoipc::api_v1

namespace tvoipc_detail::api_v1 {

/// Writes to the standard error stream.
class DefaultLogger final : public tvoipc::api_v1::ILogger
{
public:
    void Print(Verbosity verbosity, tvoipc::api_v1::ILogMessage& message) override;
};

}  // namespace tvoipc_detail::api_v1
