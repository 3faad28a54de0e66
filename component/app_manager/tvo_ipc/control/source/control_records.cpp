#include <algorithm>
#include <cstring>

#include <component/app_manager/tvo_ipc/control_records.h>

namespace app_manager::control {
namespace {

using std::chrono::milliseconds;
using tvo::ipc::arena::ReadText;
using tvo::ipc::arena::Reference;
using tvo::ipc::arena::Take;
using tvo::ipc::arena::WriteText;

/// What a person's calendar knows: up to the year 9999.
constexpr Moment LatestMoment{std::chrono::seconds{253402300799}};

bool IsKind(std::uint8_t number)
{
    return number >= static_cast<std::uint8_t>(Kind::Service) &&
           number <= static_cast<std::uint8_t>(Kind::Application);
}

bool IsState(std::uint8_t number)
{
    return number >= static_cast<std::uint8_t>(State::Waiting) &&
           number <= static_cast<std::uint8_t>(State::Closed);
}

bool IsEndKind(std::uint8_t number)
{
    return number >= static_cast<std::uint8_t>(EndKind::Asked) &&
           number <= static_cast<std::uint8_t>(EndKind::NotStarted);
}

std::string_view Cut(std::string_view text, std::uint32_t limit)
{
    if (text.size() <= limit)
    {
        return text;
    }
    std::size_t size = limit;
    constexpr unsigned MostFollowing = 3;
    for (unsigned i = 0; i < MostFollowing && (text[size] & 0xC0) == 0x80; ++i)
    {
        --size;
    }
    return text.substr(0, size);
}

std::int64_t ToWire(Moment moment)
{
    return moment.time_since_epoch().count();
}

/// Reads what a message may or may not have, and remembers whether all of it made sense.
class StatusReader final
{
public:
    StatusReader(const StatusResponse& response, const wz_arena& arena)
        : m_response(response), m_arena(arena)
    {}

    std::optional<ApplicationStatus> Read()
    {
        ApplicationStatus status;
        m_isSound = IsKind(m_response.kind) && IsState(m_response.state);
        status.kind = static_cast<Kind>(m_response.kind);
        status.state = static_cast<State>(m_response.state);
        status.pid = m_response.pid;
        status.restarts = m_response.restarts;
        ReadTimes(status);
        if (Has(present::ReportedState))
        {
            status.reportedState = m_response.reportedState;
        }
        if (Has(present::LastEnd))
        {
            status.lastEnd = ReadEnd();
        }
        if (Has(present::LastError))
        {
            status.lastError = {Text(m_response.error, limits::ErrorText),
                                Text(m_response.errorDescription, limits::ErrorText)};
        }
        return m_isSound ? std::optional(std::move(status)) : std::nullopt;
    }

private:
    bool Has(std::uint32_t field) const
    {
        return (m_response.present & field) != 0;
    }

    void ReadTimes(ApplicationStatus& status)
    {
        if (Has(present::ReadySince))
        {
            status.readySince = MomentOf(m_response.readySince);
        }
        if (Has(present::LastPing))
        {
            status.lastPing = {MomentOf(m_response.lastPing), SpanOf(m_response.pingAge)};
        }
        if (Has(present::StartsIn))
        {
            status.startsIn = SpanOf(m_response.startsIn);
        }
    }

    LastEnd ReadEnd()
    {
        m_isSound = m_isSound && IsEndKind(m_response.endKind) && m_response.endBySignal <= 1;
        return {static_cast<EndKind>(m_response.endKind),
                m_response.endBySignal == 1,
                m_response.endStatus,
                MomentOf(m_response.endedAt),
                Text(m_response.endCause, limits::Cause)};
    }

    Moment MomentOf(std::int64_t number)
    {
        const Moment moment{std::chrono::microseconds{number}};
        m_isSound = m_isSound && moment >= Moment{} && moment <= LatestMoment;
        return moment;
    }

    milliseconds SpanOf(std::int64_t number)
    {
        m_isSound = m_isSound && number >= 0;
        return milliseconds{number};
    }

    std::string Text(const Reference& reference, std::uint32_t limit)
    {
        const auto text = ReadText(m_arena, reference);
        m_isSound = m_isSound && text && text->size() <= limit;
        return m_isSound ? std::string(*text) : std::string();
    }

    const StatusResponse& m_response;
    const wz_arena& m_arena;
    bool m_isSound = true;
};

bool PackEnd(const LastEnd& end, StatusResponse& response, wz_arena& arena)
{
    response.present |= present::LastEnd;
    response.endKind = static_cast<std::uint8_t>(end.kind);
    response.endBySignal = end.bySignal ? 1 : 0;
    response.endStatus = end.status;
    response.endedAt = ToWire(end.when);
    return WriteText(arena, Cut(end.cause, limits::Cause), limits::Cause, response.endCause);
}

bool PackError(const InternalError& error, StatusResponse& response, wz_arena& arena)
{
    response.present |= present::LastError;
    const auto write = [&arena](std::string_view text, Reference& reference)
    {
        return WriteText(arena, Cut(text, limits::ErrorText), limits::ErrorText, reference);
    };
    return write(error.error, response.error) &&
           write(error.description, response.errorDescription);
}

void PackTimes(const ApplicationStatus& status, StatusResponse& response)
{
    if (status.readySince)
    {
        response.present |= present::ReadySince;
        response.readySince = ToWire(*status.readySince);
    }
    if (status.lastPing)
    {
        response.present |= present::LastPing;
        response.lastPing = ToWire(status.lastPing->when);
        response.pingAge = status.lastPing->age.count();
    }
    if (status.startsIn)
    {
        response.present |= present::StartsIn;
        response.startsIn = status.startsIn->count();
    }
}

std::optional<Entry> ReadEntry(std::string_view bytes, const wz_arena& arena)
{
    EntryRecord record;
    std::memcpy(&record, bytes.data(), sizeof record);
    const auto name = ReadName(arena, record.name);
    if (!name || !IsKind(record.kind) || !IsState(record.state))
    {
        return std::nullopt;
    }
    return Entry{std::string(*name),
                 static_cast<Kind>(record.kind),
                 static_cast<State>(record.state),
                 record.pid};
}

}  // namespace

std::optional<std::string_view> ReadName(const wz_arena& arena, const Reference& name)
{
    const auto text = ReadText(arena, name);
    return text && !text->empty() && text->size() <= limits::Name ? text : std::nullopt;
}

std::optional<Command> ReadCommand(std::uint8_t number)
{
    const bool isKnown = number >= static_cast<std::uint8_t>(Command::Show) &&
                         number <= static_cast<std::uint8_t>(Command::Restart);
    return isKnown ? std::optional(static_cast<Command>(number)) : std::nullopt;
}

bool PackList(std::span<const Entry> all,
              std::uint32_t first,
              ListResponse& response,
              wz_arena& arena)
{
    response.total = static_cast<std::uint32_t>(all.size());
    const auto rest = all.subspan(std::min<std::size_t>(first, all.size()));
    const auto part = rest.first(std::min<std::size_t>(rest.size(), limits::EntriesInMessage));
    const auto size = static_cast<std::uint32_t>(part.size() * sizeof(EntryRecord));
    response.entries = {static_cast<std::uint32_t>(arena.current - arena.start), size};
    unsigned char* bytes = Take(arena, size);
    if (bytes == nullptr)
    {
        return false;
    }
    for (const Entry& entry : part)
    {
        EntryRecord record{{},
                           entry.pid,
                           static_cast<std::uint8_t>(entry.kind),
                           static_cast<std::uint8_t>(entry.state),
                           0};
        if (!WriteText(arena, entry.name, limits::Name, record.name))
        {
            return false;
        }
        std::memcpy(bytes, &record, sizeof record);
        bytes += sizeof record;
    }
    return true;
}

bool ReadList(const ListResponse& response, const wz_arena& arena, std::vector<Entry>& entries)
{
    if (response.entries.size == 0)
    {
        return true;
    }
    auto bytes = ReadText(arena, response.entries);
    if (!bytes || bytes->size() % sizeof(EntryRecord) != 0 ||
        bytes->size() / sizeof(EntryRecord) > limits::EntriesInMessage)
    {
        return false;
    }
    std::vector<Entry> read;
    for (; !bytes->empty(); bytes->remove_prefix(sizeof(EntryRecord)))
    {
        auto entry = ReadEntry(*bytes, arena);
        if (!entry)
        {
            return false;
        }
        read.push_back(std::move(*entry));
    }
    entries.insert(entries.end(), read.begin(), read.end());
    return true;
}

bool PackStatus(const ApplicationStatus& status, StatusResponse& response, wz_arena& arena)
{
    response.present = 0;
    response.pid = status.pid;
    response.restarts = status.restarts;
    response.kind = static_cast<std::uint8_t>(status.kind);
    response.state = static_cast<std::uint8_t>(status.state);
    PackTimes(status, response);
    if (status.reportedState)
    {
        response.present |= present::ReportedState;
        response.reportedState = *status.reportedState;
    }
    return (!status.lastEnd || PackEnd(*status.lastEnd, response, arena)) &&
           (!status.lastError || PackError(*status.lastError, response, arena));
}

std::optional<ApplicationStatus> ReadStatus(const StatusResponse& response, const wz_arena& arena)
{
    return StatusReader(response, arena).Read();
}

}  // namespace app_manager::control
