#include <stdexcept>

#include <sqlite3.h>

#include "settings_rows.h"
#include "terminal_calls.h"

namespace tvo::bench {
namespace {

struct CloseDatabase
{
    void operator()(sqlite3* database) const
    {
        sqlite3_close(database);
    }
};

struct FinalizeStatement
{
    void operator()(sqlite3_stmt* statement) const
    {
        sqlite3_finalize(statement);
    }
};

void Check(bool isDone)
{
    if (!isDone)
    {
        throw std::runtime_error("the bare database failed");
    }
}

class Database
{
public:
    Database()
    {
        sqlite3* database = nullptr;
        const bool isOpen =
            sqlite3_open((m_folder.Path() + "/updates.db").c_str(), &database) == SQLITE_OK;
        m_database.reset(database);
        Check(isOpen);
        Check(sqlite3_exec(database,
                           "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;"
                           "CREATE TABLE setting (path TEXT PRIMARY KEY, value TEXT);"
                           "INSERT INTO setting VALUES ('bench/text/', 'before')",
                           nullptr,
                           nullptr,
                           nullptr) == SQLITE_OK);
    }

    sqlite3* Get() const
    {
        return m_database.get();
    }

private:
    const StoreFolder m_folder{Medium::Disk};
    std::unique_ptr<sqlite3, CloseDatabase> m_database;
};

class UpdatesAndCalls
{
public:
    UpdatesAndCalls()
    {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(m_database.Get(),
                                 "UPDATE setting SET value = ? WHERE path = 'bench/text/'",
                                 -1,
                                 &statement,
                                 nullptr) == SQLITE_OK);
        m_update.reset(statement);
    }

    void operator()()
    {
        for (int i = 0; i < DurableWrites; ++i)
        {
            UpdateAndCall();
        }
    }

private:
    void UpdateAndCall()
    {
        m_call->Run(1);
        m_isSecond = !m_isSecond;
        Check(sqlite3_bind_text(
                  m_update.get(), 1, m_isSecond ? "de-DE" : "en-US", -1, SQLITE_STATIC) ==
              SQLITE_OK);
        Check(sqlite3_step(m_update.get()) == SQLITE_DONE);
        Check(sqlite3_reset(m_update.get()) == SQLITE_OK);
    }

    const Database m_database;
    std::unique_ptr<sqlite3_stmt, FinalizeStatement> m_update;
    const std::unique_ptr<Contender> m_call = MakeSmallCalls(1);
    bool m_isSecond = false;
};

}  // namespace

std::unique_ptr<Contender> MakeDurableUpdates()
{
    return std::make_unique<Repeated<UpdatesAndCalls>>();
}

}  // namespace tvo::bench
