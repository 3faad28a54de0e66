#include "database.h"

#include <cerrno>

#include <fmt/format.h>
#include <sqlite3.h>

namespace settings_manager::service {
namespace {

constexpr int BusyTimeoutMs = 2000;  // for a service of the same database that is just ending

/// A quota and the limit of a file's size are no errors of their own to the library, and its own
/// record of the cause does not outlive the statement; `errno` does.
bool IsFull(int code)
{
    return (code & 0xFF) == SQLITE_FULL ||
           (code == SQLITE_IOERR_WRITE && (errno == EDQUOT || errno == EFBIG));
}

void Check(int code, sqlite3* database)
{
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
    {
        const bool isFull = IsFull(code);
        throw DatabaseError(fmt::format("{} (code {})", sqlite3_errmsg(database), code), isFull);
    }
}

}  // namespace

Statement::Statement(sqlite3* database, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    const int code =
        sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    m_statement.reset(statement);
    Check(code, database);
}

void Statement::Bind(int index, std::span<const unsigned char> bytes)
{
    // An empty block is not the same as none.
    const void* const data = bytes.empty() ? static_cast<const void*>("") : bytes.data();
    Check(sqlite3_bind_blob64(m_statement.get(), index, data, bytes.size(), SQLITE_STATIC),
          Database());
}

void Statement::Bind(int index, std::string_view bytes)
{
    Bind(index, std::span(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()));
}

void Statement::Bind(int index, std::int64_t number)
{
    Check(sqlite3_bind_int64(m_statement.get(), index, number), Database());
}

bool Statement::Step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW)
    {
        return true;
    }
    sqlite3_reset(m_statement.get());
    Check(code, Database());
    return false;
}

std::span<const unsigned char> Statement::Bytes(int column)
{
    const auto* data =
        static_cast<const unsigned char*>(sqlite3_column_blob(m_statement.get(), column));
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
}

std::string_view Statement::Text(int column)
{
    const auto bytes = Bytes(column);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::int64_t Statement::Number(int column)
{
    return sqlite3_column_int64(m_statement.get(), column);
}

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const noexcept
{
    sqlite3_finalize(statement);
}

sqlite3* Statement::Database() const noexcept
{
    return sqlite3_db_handle(m_statement.get());
}

Database::Database(const std::string& file)
{
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(
        file.c_str(),
        &database,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE,
        nullptr);
    m_database.reset(database);
    Check(code, database);
    sqlite3_busy_timeout(database, BusyTimeoutMs);
    SetLeaveAlone(true);
}

void Database::KeepChanges()
{
    SetLeaveAlone(false);
}

void Database::Execute(const char* sql)
{
    Check(sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr), m_database.get());
}

Statement Database::Prepare(const char* sql)
{
    return {m_database.get(), sql};
}

std::int64_t Database::Number(const char* sql)
{
    Statement statement = Prepare(sql);
    return statement.Step() ? statement.Number(0) : 0;
}

std::string Database::Text(const char* sql)
{
    Statement statement = Prepare(sql);
    return statement.Step() ? std::string(statement.Text(0)) : std::string();
}

/// Closing a database normally moves the log into the file and removes it.
void Database::SetLeaveAlone(bool isLeftAlone)
{
    sqlite3_db_config(
        m_database.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, isLeftAlone ? 1 : 0, nullptr);
}

void Database::Closer::operator()(sqlite3* database) const noexcept
{
    sqlite3_close(database);
}

Transaction::Transaction(Database& database) : m_database(database)
{
    m_database.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (sqlite3_get_autocommit(m_database.m_database.get()) == 0)
    {
        sqlite3_exec(m_database.m_database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::Commit()
{
    m_database.Execute("COMMIT");
}

}  // namespace settings_manager::service
