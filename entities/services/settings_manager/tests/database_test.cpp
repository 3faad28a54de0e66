#include <csignal>
#include <functional>
#include <tuple>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "store_support.h"

namespace settings_manager::service {
namespace {

/// Five nodes that belong together, so that half a write shows.
Setting Numbered(long number)
{
    return {List{{number}, {number}, {number}, {number}}};
}

long NumberIn(const Store& store)
{
    const Setting setting = ReadAll(store, "n");
    const auto& list = std::get<List>(setting.value);
    EXPECT_EQ(setting, Numbered(std::get<long>(list.at(0).value))) << "half a write";
    return std::get<long>(list.at(0).value);
}

/// Lets a child write number after number, each of which it tells, and kills it after a while.
/// @returns the last number that it has told
long KillWriter(const std::string& file, int tellings)
{
    int ends[2];
    EXPECT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0)
    {
        const auto store = OpenStore(file);
        for (long number = 1;; ++number)
        {
            Write(*store, WriteMode::SetValue, "n", Numbered(number));
            std::ignore = ::write(ends[1], &number, sizeof(number));
        }
    }
    ::close(ends[1]);
    long last = 0;
    long number = 0;
    while (::read(ends[0], &number, sizeof(number)) == sizeof(number))
    {
        last = number;
        if (--tellings == 0)
        {
            ::kill(child, SIGKILL);
        }
    }
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return last;
}

std::string RefusalOf(const std::string& file)
{
    try
    {
        OpenStore(file);
        return {};
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
}

/// @param meanwhile  is done before the database is closed
void Execute(
    const std::string& file,
    const char* sql,
    const std::function<void()>& meanwhile = [] {})
{
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    meanwhile();
    sqlite3_close(database);
}

}  // namespace

TEST(Database, HasEveryWriteThatWasToldWhenTheProcessIsKilled)
{
    const TempFolder folder;
    const std::string file = folder.File("db");
    Create(*OpenStore(file), "n", Numbered(0));
    for (const int tellings : {1, 2, 7, 60, 400})
    {
        const long told = KillWriter(file, tellings);
        const auto store = OpenStore(file);
        const long kept = NumberIn(*store);
        EXPECT_GE(kept, told);
        EXPECT_LE(kept, told + 1) << "at most the write under way";
        Write(*store, WriteMode::SetValue, "n", Numbered(0));
    }
}

TEST(Database, OpensWithALogCutAnywhere)
{
    const TempFolder folder;
    const std::string file = folder.File("db");
    Create(*OpenStore(file), "n", Numbered(0));
    KillWriter(file, 1);
    const std::string database = ReadFile(file);
    // A header and three pages: how much more the child has written is up to the scheduler.
    const std::string log = ReadFile(file + "-wal").substr(0, 32 + 3 * (24 + 4096));
    ASSERT_GT(log.size(), 4096U);
    long last = 0;
    for (std::size_t size = 0; size <= log.size(); ++size)
    {
        WriteFile(file, database);
        WriteFile(file + "-wal", std::string_view(log).substr(0, size));
        const long kept = NumberIn(*OpenStore(file));
        EXPECT_GE(kept, last) << size;
        last = kept;
    }
    EXPECT_GE(last, 1);
}

TEST(Database, RefusesWhatItCanNotUseAndLeavesItAlone)
{
    struct Row
    {
        const char* wanted;
        const char* sql;
        std::size_t from = 0;  ///< the bytes from here to there are overwritten, those behind cut
        std::size_t to = 0;
    };
    const Row rows[] = {
        {"is of version 2, this program knows version 1", "PRAGMA user_version = 2"},
        {"is a database, but not one of settings", "PRAGMA application_id = 7"},
        {"its rows are no tree", "DELETE FROM node WHERE path = CAST('t/a/' AS BLOB)"},
        {"its rows are no tree", "UPDATE node SET value = x'00'"},
        {"its rows are no tree", "INSERT INTO node VALUES (x'2F', zeroblob(16), 0)"},
        {"file is not a database", "", 0, 9000},
        {"malformed", "", 100, 4096},
        {"is corrupt: ", "", 4096, 8192},
    };
    for (const Row& row : rows)
    {
        const TempFolder folder;
        const std::string file = folder.File("db");
        Create(*OpenStore(file), "t", SampleTree());
        Execute(file, row.sql);
        if (row.to != 0)
        {
            const std::string bytes = ReadFile(file).substr(0, row.from);
            WriteFile(file, bytes + std::string(row.to - row.from, 'Z'));
        }
        const std::string before = ReadFile(file);
        const std::string text = RefusalOf(file);
        EXPECT_NE(text.find(row.wanted), std::string::npos) << row.wanted << ": " << text;
        EXPECT_NE(text.find(file), std::string::npos) << text;
        EXPECT_EQ(text.find('\n'), std::string::npos) << text;
        EXPECT_EQ(ReadFile(file), before) << row.wanted;
    }
}

TEST(Database, LeavesTheLogOfANewerDatabaseAlone)
{
    const TempFolder folder;
    const std::string file = folder.File("db");
    Create(*OpenStore(file), "n", Numbered(0));
    std::string log;
    Execute(file, "PRAGMA user_version = 2", [&] { log = ReadFile(file + "-wal"); });
    WriteFile(file + "-wal", log);
    EXPECT_NE(RefusalOf(file).find("is of version 2"), std::string::npos);
    EXPECT_FALSE(log.empty());
    EXPECT_EQ(ReadFile(file + "-wal"), log);
}

TEST(Database, RefusesAPlaceThatItCanNotUse)
{
    const TempFolder folder;
    EXPECT_NE(RefusalOf(folder.File("no/db")), "");
    EXPECT_NE(RefusalOf(folder.File("")), "");
    const std::string file = folder.File("db");
    WriteFile(file, "");
    const auto first = OpenStore(file);
    EXPECT_NE(RefusalOf(file).find("locked"), std::string::npos);
    Create(*first, "n", Numbered(1));
}

/// The limit on a file's size stands for a disk without room: both make the write to the log fail.
TEST(Database, RefusesAWriteForWhichThereIsNoRoomAndLosesNothing)
{
    const TempFolder folder;
    const std::string file = folder.File("db");
    Create(*OpenStore(file), "n", Numbered(1));
    const pid_t child = ::fork();
    if (child == 0)
    {
        const auto store = OpenStore(file);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100'000, 100'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const Setting big{List(60, Setting{std::string(4000, 'x')})};
        const bool isRefused = CodeOf([&] { Create(*store, "big", big); }) == codes::OutOfSpace;
        Write(*store, WriteMode::SetValue, "n", Numbered(2));
        ::_exit(isRefused ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    const auto store = OpenStore(file);
    EXPECT_EQ(NumberIn(*store), 2);
    EXPECT_EQ(CodeOf([&] { std::ignore = store->At(ReadPath("big")); }), codes::NotFound);
}

}  // namespace settings_manager::service
