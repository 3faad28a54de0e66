#include <functional>

#include <gtest/gtest.h>

#include <component/app_manager/tvo_ipc/control_records.h>

namespace app_manager::control {
namespace {

using tvo::ipc::arena::Buffer;

constexpr Moment Noon{std::chrono::seconds{1'800'000'000}};

ApplicationStatus FullStatus()
{
    return {Kind::Application,
            State::Delayed,
            4711,
            3,
            Noon,
            Ping{Noon, std::chrono::milliseconds{250}},
            std::chrono::milliseconds{500},
            -2,
            LastEnd{EndKind::Hang, true, 6, Noon, "no ping for 5 s"},
            InternalError{"out of luck", ""}};
}

/// What a client reads of a status after the record was bent on its way.
std::optional<ApplicationStatus> Sent(
    const ApplicationStatus& status,
    const std::function<void(StatusResponse&)>& bend = [](auto&) {})
{
    Buffer arena(limits::StatusArena);
    StatusResponse response{};
    EXPECT_TRUE(PackStatus(status, response, *arena.Get()));
    bend(response);
    return ReadStatus(response, *arena.Get());
}

}  // namespace

TEST(ControlRecords, StatusesComeBackWhole)
{
    EXPECT_EQ(Sent(FullStatus()), FullStatus());
    EXPECT_EQ(Sent({}), ApplicationStatus{});
}

TEST(ControlRecords, TextsAreCutBetweenCharacters)
{
    ApplicationStatus status = FullStatus();
    const std::string longest(limits::Cause - 1, 'x');
    status.lastEnd->cause = longest + "\u20ac";
    status.lastError->error = std::string(limits::ErrorText - 2, 'x') + "\u00e4y";
    status.lastError->description = std::string(1000, '\xBF');
    const auto read = Sent(status);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->lastEnd->cause, longest);
    EXPECT_EQ(read->lastError->error, std::string(limits::ErrorText - 2, 'x') + "\u00e4");
    EXPECT_LE(read->lastError->description.size(), limits::ErrorText);
}

TEST(ControlRecords, BentStatusesAreRefused)
{
    const std::function<void(StatusResponse&)> bends[] = {
        [](auto& response) { response.kind = 0; },
        [](auto& response) { response.kind = 3; },
        [](auto& response) { response.state = 7; },
        [](auto& response) { response.endKind = 8; },
        [](auto& response) { response.endBySignal = 2; },
        [](auto& response) { response.readySince = -1; },
        [](auto& response) { response.lastPing = INT64_MAX; },
        [](auto& response) { response.pingAge = -1; },
        [](auto& response) { response.startsIn = INT64_MIN; },
        [](auto& response) { response.endedAt = 253402300800'000'000; },
        [](auto& response) { response.endCause.size = 10'000; },
        [](auto& response) { response.error.offset = 0xFFFFFFFF; },
        [](auto& response) {
            response.errorDescription = {0, limits::ErrorText + 1};
        },
    };
    ApplicationStatus status = FullStatus();
    status.lastEnd->cause = std::string(limits::Cause, 'x');
    for (std::size_t i = 0; i < std::size(bends); ++i)
    {
        EXPECT_FALSE(Sent(status, bends[i])) << i;
    }
}

TEST(ControlRecords, BentListsAreRefusedAndAddNothing)
{
    using Bend = std::function<void(ListResponse&, EntryRecord&)>;
    const Bend bends[] = {
        [](auto& response, auto&) { response.entries.size -= 1; },
        [](auto& response, auto&) { response.entries.size = 100'000; },
        [](auto& response, auto&) { response.entries.offset = 0x80000000; },
        [](auto&, auto& record) { record.name.size = 0; },
        [](auto&, auto& record) { record.name.size = limits::Name + 1; },
        [](auto&, auto& record) { record.name.offset = 100'000; },
        [](auto&, auto& record) { record.kind = 9; },
        [](auto&, auto& record) { record.state = 0; },
    };
    const std::vector<Entry> all(2, {std::string(limits::Name, 'n'), Kind::Service, State::Ready});
    for (std::size_t i = 0; i < std::size(bends); ++i)
    {
        Buffer arena(limits::ListArena);
        ListResponse response{};
        ASSERT_TRUE(PackList(all, 0, response, *arena.Get()));
        auto* const last = reinterpret_cast<EntryRecord*>(arena.Get()->start) + 1;
        bends[i](response, *last);
        std::vector<Entry> entries;
        EXPECT_FALSE(ReadList(response, *arena.Get(), entries)) << i;
        EXPECT_TRUE(entries.empty()) << i;
    }
}

}  // namespace app_manager::control
