#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace settings_manager::service {

/// A failure of the database.
class DatabaseError final : public std::runtime_error
{
public:
    DatabaseError(const std::string& text, bool isFull) : std::runtime_error(text), m_isFull(isFull)
    {}

    /// Whether there was no room to write to.
    [[nodiscard]] bool IsFull() const noexcept
    {
        return m_isFull;
    }

private:
    bool m_isFull;
};

/// A prepared statement that is used again and again.
class Statement final
{
public:
    Statement(sqlite3* database, const char* sql);

    /// @param index  from 1. The bytes must stay until the next step.
    void Bind(int index, std::span<const unsigned char> bytes);
    void Bind(int index, std::string_view bytes);
    void Bind(int index, std::int64_t number);

    /// @returns false at the end, with the statement ready to be run again; also after an exception
    bool Step();

    /// The columns of the row that was reached; bytes stay until the next step.
    [[nodiscard]] std::span<const unsigned char> Bytes(int column);
    [[nodiscard]] std::string_view Text(int column);
    [[nodiscard]] std::int64_t Number(int column);

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };

    [[nodiscard]] sqlite3* Database() const noexcept;

    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

/// An open database. What fails throws a DatabaseError.
class Database final
{
public:
    /// Opens a file, which is made where it is missing. Until `KeepChanges` closing it changes
    /// nothing in the file or beside it.
    explicit Database(const std::string& file);

    void KeepChanges();

    void Execute(const char* sql);

    [[nodiscard]] Statement Prepare(const char* sql);

    /// The first column of the first row.
    [[nodiscard]] std::int64_t Number(const char* sql);
    [[nodiscard]] std::string Text(const char* sql);

private:
    friend class Transaction;

    struct Closer
    {
        void operator()(sqlite3* database) const noexcept;
    };

    void SetLeaveAlone(bool isLeftAlone);

    std::unique_ptr<sqlite3, Closer> m_database;
};

/// Writes between construction and `Commit`, all or nothing.
class Transaction final
{
public:
    explicit Transaction(Database& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Takes back what was not committed.
    ~Transaction();

    /// Comes back when everything is on the disk.
    void Commit();

private:
    Database& m_database;
};

}  // namespace settings_manager::service
