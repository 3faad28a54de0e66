#include <csignal>
#include <tuple>

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "store_support.h"

namespace settings_manager::service {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::ThrowsMessage;

/// Nodes that belong together, so that half a write shows.
Setting Numbered(long number)
{
    return {List(4, Setting{number})};
}

long NumberIn(const Store& store)
{
    const Setting setting = ReadAll(store, "n");
    const auto& list = std::get<List>(setting.value);
    EXPECT_EQ(setting, Numbered(std::get<long>(list.at(0).value))) << "half a write";
    return std::get<long>(list.at(0).value);
}

/// That the file is refused with one line that has this text.
void ExpectRefusal(const std::string& file, const char* text)
{
    EXPECT_THAT([&] { OpenStore(file); },
                ThrowsMessage<std::runtime_error>(
                    AllOf(HasSubstr(text), HasSubstr(file), Not(HasSubstr("\n")))));
}

/// @returns the log as it was before the database was closed
std::string Execute(const std::string& file, const char* sql)
{
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    std::string log = ReadFile(file + "-wal");
    sqlite3_close(database);
    return log;
}

}  // namespace

TEST(Database, OpensWithALogCutAnywhere)
{
    const TempFolder folder;
    const std::string file = folder.File("db");
    Create(*OpenStore(file), "n", Numbered(0));
    const std::string database = ReadFile(file);
    std::string log;
    {
        const auto store = OpenStore(file);
        Write(*store, WriteMode::SetValue, "n", Numbered(1));
        log = ReadFile(file + "-wal");
    }
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
    EXPECT_EQ(last, 1);
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
        ExpectRefusal(file, row.wanted);
        EXPECT_EQ(ReadFile(file), before) << row.wanted;
    }
}

TEST(Database, LeavesTheLogOfANewerDatabaseAlone)
{
    const TempFolder folder;
    const std::string file = folder.File("db");
    Create(*OpenStore(file), "n", Numbered(0));
    const std::string log = Execute(file, "PRAGMA user_version = 2");
    WriteFile(file + "-wal", log);
    ExpectRefusal(file, "is of version 2");
    EXPECT_FALSE(log.empty());
    EXPECT_EQ(ReadFile(file + "-wal"), log);
}

TEST(Database, RefusesAPlaceThatItCanNotUse)
{
    const TempFolder folder;
    ExpectRefusal(folder.File("no/db"), "");
    ExpectRefusal(folder.File(""), "");
    const std::string file = folder.File("db");
    WriteFile(file, "");
    const auto first = OpenStore(file);
    ExpectRefusal(file, "locked");
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
