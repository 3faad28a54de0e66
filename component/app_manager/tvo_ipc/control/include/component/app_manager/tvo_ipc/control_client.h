#pragma once

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <component/app_manager/tvo_ipc/control_records.h>

namespace app_manager::control {

/// The manager has refused what was asked.
class Refusal final : public std::runtime_error
{
public:
    explicit Refusal(int code) : std::runtime_error(RefusalText(code)), m_code(code) {}

    [[nodiscard]] int Code() const noexcept
    {
        return m_code;
    }

private:
    int m_code;
};

/// The manager is not there, does not answer in time, or answers what makes no sense.
class NoManager final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// How long connecting and each operation may take, so that nobody hangs with the manager.
inline constexpr std::chrono::milliseconds AnswerLimit{5000};

/// A connection to the manager's control service. Every operation blocks within its limit and
/// throws `Refusal` or `NoManager`; after a `NoManager` the connection is of no use any more.
/// Several threads may call.
class IControlClient
{
public:
    virtual ~IControlClient() = default;

    /// @returns services and applications in the order in which they are started
    virtual std::vector<Entry> List() = 0;

    virtual ApplicationStatus Status(std::string_view name) = 0;

    /// Returns when the manager has accepted the command, not when it is carried out.
    virtual void Send(std::string_view name, Command command) = 0;
};

/// @param patience  how long the manager may take to appear
/// @param limit     of connecting, besides, and of each operation
/// @throws NoManager
std::unique_ptr<IControlClient> ConnectControl(std::chrono::milliseconds patience,
                                               std::chrono::milliseconds limit = AnswerLimit);

}  // namespace app_manager::control
