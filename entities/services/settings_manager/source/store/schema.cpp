#include "schema.h"

#include <algorithm>

#include <fmt/format.h>

namespace settings_manager::service {
namespace {

constexpr std::int64_t Version = 1;
constexpr std::int64_t ApplicationId = 0x54564F53;  // "TVOS"

bool IsEmpty(Database& database)
{
    return database.Number("SELECT count(*) FROM sqlite_schema") == 0 &&
           database.Number("PRAGMA application_id") == 0 &&
           database.Number("PRAGMA user_version") == 0;
}

[[noreturn]] void Refuse(const std::string& why)
{
    throw DatabaseError(why, false);
}

void CheckContents(Database& database)
{
    if (database.Number("PRAGMA application_id") != ApplicationId)
    {
        Refuse("is a database, but not one of settings");
    }
    const std::int64_t version = database.Number("PRAGMA user_version");
    if (version != Version)
    {
        Refuse(fmt::format("is of version {}, this program knows version {}", version, Version));
    }
    std::string state = database.Text("PRAGMA integrity_check(1)");
    if (state != "ok")
    {
        std::replace(state.begin(), state.end(), '\n', ' ');
        Refuse(fmt::format("is corrupt: {}", state));
    }
}

/// In this mode a commit costs one write and one flush of the log.
void UseLog(Database& database)
{
    if (database.Text("PRAGMA journal_mode = WAL") != "wal")
    {
        Refuse("can not be used with a write-ahead log");
    }
    database.Execute("PRAGMA synchronous = FULL");
    database.Execute("PRAGMA journal_size_limit = 16777216");
}

/// The root is always there: a map, kind 2, with room for a value that it does not have.
void MakeTables(Database& database)
{
    Transaction transaction(database);
    database.Execute(
        "CREATE TABLE node (path BLOB NOT NULL PRIMARY KEY, value BLOB NOT NULL,"
        " attributes INTEGER NOT NULL) WITHOUT ROWID;"
        "INSERT INTO node VALUES (x'', x'02000000000000000000000000000000', 0)");
    database.Execute(
        fmt::format("PRAGMA application_id = {}; PRAGMA user_version = {}", ApplicationId, Version)
            .c_str());
    transaction.Commit();
}

/// Nothing is written before everything has been looked at.
Database Open(const std::string& file)
{
    Database database(file);
    database.Execute("PRAGMA locking_mode = EXCLUSIVE");
    const bool isNew = IsEmpty(database);
    if (!isNew)
    {
        CheckContents(database);
    }
    UseLog(database);
    if (isNew)
    {
        MakeTables(database);
    }
    return database;
}

}  // namespace

Database OpenSettings(const std::string& file)
{
    try
    {
        return Open(file);
    }
    catch (const DatabaseError& error)
    {
        throw DatabaseError(fmt::format("Settings database '{}': {}", file, error.what()),
                            error.IsFull());
    }
}

}  // namespace settings_manager::service
