#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include <shared/common/tvo/ipc/arena/arena.h>
#include <wz/message.h>

// The manager's control interface: what there is, how each of them is doing, and what a person
// wants done about it. Every response carries a `result`: 0, or the negative code of a refusal,
// whose sentence `RefusalText` knows; the other fields mean something after a 0 only. A reply whose
// failed bit is set has no fields at all.
namespace app_manager::control {

inline constexpr char InterfaceName[] = "vx.app_manager.ApplicationManager.control";
inline constexpr char ServiceName[] = "app_manager.control";
inline constexpr std::uint16_t Riid = 4;

/// How much a message may carry, in bytes where nothing else is said.
namespace limits {

inline constexpr std::uint32_t Name = 128;
inline constexpr std::uint32_t Cause = 256;
inline constexpr std::uint32_t ErrorText = 128;
inline constexpr std::uint32_t EntryRecord = 16;
inline constexpr std::uint32_t EntriesInMessage = 64;  ///< a number

inline constexpr std::uint32_t RequestArena = Name;
inline constexpr std::uint32_t ListArena = EntriesInMessage * (EntryRecord + Name);
inline constexpr std::uint32_t StatusArena = Cause + 2 * ErrorText;
inline constexpr std::uint32_t ResponseArena = std::max(ListArena, StatusArena);

}  // namespace limits

enum class Kind : std::uint8_t
{
    Service = 1,  ///< a plain program, ready once its name is served or it runs
    Application,  ///< reports, pings and takes commands
};

enum class State : std::uint8_t
{
    Waiting = 1,  ///< its turn to be started has not come
    Starting,     ///< it runs and is not ready yet
    Ready,
    Stopping,  ///< it has been asked to end, or is being ended
    Delayed,   ///< it has ended and is started again after a pause
    Closed,    ///< it has ended as asked and stays so until somebody asks for a restart
};

/// Why the last process has ended.
enum class EndKind : std::uint8_t
{
    Asked = 1,      ///< it was told to end
    Exit,           ///< it has exited unasked
    Crash,          ///< a signal that nobody here has sent
    Hang,           ///< it did not ping, or exit, in time and was ended
    NotReady,       ///< it did not get ready in time and was ended
    InternalError,  ///< it has reported an error of its own
    NotStarted,     ///< its program could not be executed
};

/// What can be asked of an application. A plain service takes `Restart` alone.
enum class Command : std::uint8_t
{
    Show = 1,
    Hide,
    Close,    ///< it is told to end and not started again
    Restart,  ///< it is told to end, if it runs, and started again without a delay
};

inline constexpr std::uint16_t ListMid = 0;
inline constexpr std::uint16_t StatusMid = 1;
inline constexpr std::uint16_t CommandMid = 2;

/// Asks for the names, in the order of the configuration, from the one with the number `first` on.
struct alignas(8) ListRequest
{
    wz_message base;
    std::uint32_t first;
};

static_assert(sizeof(ListRequest) == 32);
static_assert(offsetof(ListRequest, first) == 24);

/// At most `limits::EntriesInMessage` of `total` names.
struct alignas(8) ListResponse
{
    wz_message base;
    tvo::ipc::arena::Reference entries;  ///< an array of `EntryRecord`
    std::uint32_t total;
    std::int32_t result;
};

static_assert(sizeof(ListResponse) == 40);
static_assert(offsetof(ListResponse, entries) == 24);
static_assert(offsetof(ListResponse, total) == 32);
static_assert(offsetof(ListResponse, result) == 36);

struct EntryRecord
{
    tvo::ipc::arena::Reference name;
    std::uint32_t pid;  ///< 0 for none
    std::uint8_t kind;
    std::uint8_t state;
    std::uint16_t reserved;
};

static_assert(sizeof(EntryRecord) == limits::EntryRecord);
static_assert(offsetof(EntryRecord, pid) == 8);
static_assert(offsetof(EntryRecord, kind) == 12);
static_assert(offsetof(EntryRecord, state) == 13);

struct alignas(8) StatusRequest
{
    wz_message base;
    tvo::ipc::arena::Reference name;
};

static_assert(sizeof(StatusRequest) == 32);
static_assert(offsetof(StatusRequest, name) == 24);

/// Which fields of a status are filled.
namespace present {

inline constexpr std::uint32_t ReadySince = 1;
inline constexpr std::uint32_t LastPing = 2;
inline constexpr std::uint32_t StartsIn = 4;
inline constexpr std::uint32_t ReportedState = 8;
inline constexpr std::uint32_t LastEnd = 16;
inline constexpr std::uint32_t LastError = 32;

}  // namespace present

/// Moments are microseconds of CLOCK_REALTIME, spans milliseconds.
struct alignas(8) StatusResponse
{
    wz_message base;
    std::int32_t result;
    std::uint32_t present;
    std::uint32_t pid;  ///< 0 for none
    std::uint32_t restarts;
    std::int64_t readySince;
    std::int64_t lastPing;
    std::int64_t pingAge;
    std::int64_t startsIn;
    std::int64_t reportedState;
    std::int64_t endedAt;
    std::int32_t endStatus;  ///< exit status or number of the signal
    std::uint8_t endKind;
    std::uint8_t endBySignal;  ///< 1: a signal; 0: it has exited
    std::uint8_t kind;
    std::uint8_t state;
    tvo::ipc::arena::Reference endCause;
    tvo::ipc::arena::Reference error;
    tvo::ipc::arena::Reference errorDescription;
};

static_assert(sizeof(StatusResponse) == 120);
static_assert(offsetof(StatusResponse, result) == 24);
static_assert(offsetof(StatusResponse, readySince) == 40);
static_assert(offsetof(StatusResponse, endStatus) == 88);
static_assert(offsetof(StatusResponse, endKind) == 92);
static_assert(offsetof(StatusResponse, endCause) == 96);
static_assert(offsetof(StatusResponse, errorDescription) == 112);

/// Answered once the command is accepted; what becomes of it is told by the status.
struct alignas(8) CommandRequest
{
    wz_message base;
    tvo::ipc::arena::Reference name;
    std::uint8_t command;
};

static_assert(sizeof(CommandRequest) == 40);
static_assert(offsetof(CommandRequest, name) == 24);
static_assert(offsetof(CommandRequest, command) == 32);

struct alignas(8) CommandResponse
{
    wz_message base;
    std::int32_t result;
};

static_assert(sizeof(CommandResponse) == 32);
static_assert(offsetof(CommandResponse, result) == 24);

}  // namespace app_manager::control
