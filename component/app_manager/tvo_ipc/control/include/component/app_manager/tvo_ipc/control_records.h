#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <component/app_manager/tvo_ipc/control.h>
#include <component/plk/result_codes.h>

/// The control interface's records as programs hold them, with their way into messages and back.
/// What is read comes from another process: everything is checked before it is handed out.
namespace app_manager::control {

/// The refusals of the manager.
namespace refusals {

inline constexpr int UnknownName = plk::codes::NotFound;
inline constexpr int NotAllowed = plk::codes::Prohibited;        ///< by the configuration
inline constexpr int NotForServices = plk::codes::NotSupported;  ///< a command for applications
inline constexpr int NotReady = plk::codes::NotReady;            ///< nobody would take the command
inline constexpr int AlreadyClosed = plk::codes::AlreadyDone;
inline constexpr int IsStopping =
    plk::codes::InvalidState;  ///< the manager itself comes to its end
inline constexpr int BadRequest = plk::codes::InvalidArgument;

}  // namespace refusals

/// @returns a sentence for a person, without a full stop; that of the code itself for an unknown
/// one
std::string RefusalText(int code);

using Moment = std::chrono::sys_time<std::chrono::microseconds>;

/// One line of a list.
struct Entry
{
    std::string name;
    Kind kind = Kind::Service;
    State state = State::Waiting;
    std::uint32_t pid = 0;  ///< 0 for none

    bool operator==(const Entry&) const = default;
};

struct Ping
{
    Moment when;
    std::chrono::milliseconds age{};  ///< by a clock that nobody sets

    bool operator==(const Ping&) const = default;
};

/// How the last process has ended.
struct LastEnd
{
    EndKind kind = EndKind::Asked;
    bool bySignal = false;
    std::int32_t status = 0;  ///< exit status or number of the signal
    Moment when;
    std::string cause;  ///< for a person, the status included; any bytes, for it may quote

    bool operator==(const LastEnd&) const = default;
};

/// What an application has said when it gave up. Any bytes.
struct InternalError
{
    std::string error;
    std::string description;

    bool operator==(const InternalError&) const = default;
};

struct ApplicationStatus
{
    Kind kind = Kind::Service;
    State state = State::Waiting;
    std::uint32_t pid = 0;                              ///< 0 for none
    std::uint32_t restarts = 0;                         ///< since the manager's own start
    std::optional<Moment> readySince;                   ///< of the process that runs
    std::optional<Ping> lastPing;                       ///< of the process that runs
    std::optional<std::chrono::milliseconds> startsIn;  ///< what is left of a pause
    std::optional<std::int64_t> reportedState;          ///< the last one of the process that runs
    std::optional<LastEnd> lastEnd;
    std::optional<InternalError> lastError;

    bool operator==(const ApplicationStatus&) const = default;
};

/// Names are 1 to `limits::Name` bytes.
/// @returns the name, which lies in the arena, or nothing for one that makes no sense
std::optional<std::string_view> ReadName(const wz_arena& arena,
                                         const tvo::ipc::arena::Reference& name);

/// @returns nothing for a number that is no command
std::optional<Command> ReadCommand(std::uint8_t number);

/// Fills in a part of the list.
/// @param all  every entry there is, with names of 1 to `limits::Name` bytes
/// @returns false when the arena has no room for what belongs into one message
[[nodiscard]] bool PackList(std::span<const Entry> all,
                            std::uint32_t first,
                            ListResponse& response,
                            wz_arena& arena);

/// @param entries  those of this message are put behind what is there
/// @returns false, with `entries` unchanged, for a response that makes no sense
[[nodiscard]] bool ReadList(const ListResponse& response,
                            const wz_arena& arena,
                            std::vector<Entry>& entries);

/// Texts beyond their limits are cut between two characters.
/// @returns false when the arena has no room
[[nodiscard]] bool PackStatus(const ApplicationStatus& status,
                              StatusResponse& response,
                              wz_arena& arena);

/// @returns nothing for a response that makes no sense
std::optional<ApplicationStatus> ReadStatus(const StatusResponse& response, const wz_arena& arena);

}  // namespace app_manager::control
