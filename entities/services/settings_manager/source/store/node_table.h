#pragma once

#include <string>
#include <string_view>

#include "database.h"
#include "difference.h"

namespace settings_manager::service {

/// The rows of the nodes on disk, one a node: path, value block, attributes. The database is locked
/// against everybody else as long as the table lives.
class NodeTable final : private IRowSink
{
public:
    /// Opens the database, or makes a new one of a missing or empty file.
    /// @throws std::runtime_error with one line that says why the file is of no use; it is left as
    ///         it is then
    explicit NodeTable(const std::string& file);

    /// The whole tree.
    /// @throws std::runtime_error when the rows are no tree
    [[nodiscard]] NodePtr Load();

    /// Writes down how a setting has changed; it is on the disk when this comes back.
    /// @param before, after  null where the setting is not there
    /// @param path  the text of its path
    /// @throws DatabaseError; the rows are as they were
    void Save(const Node* before, const Node* after, std::string path);

private:
    void Put(std::string_view path, const Node& node) override;
    void Erase(std::string_view path) override;

    std::string m_file;
    Database m_database;
    Statement m_put;
    Statement m_erase;
};

}  // namespace settings_manager::service
