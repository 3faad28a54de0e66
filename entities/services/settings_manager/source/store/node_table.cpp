#include "node_table.h"

#include <tuple>

#include <fmt/format.h>

#include <component/nvl/error.h>

#include "schema.h"
#include "tree_builder.h"

namespace settings_manager::service {
namespace {

constexpr std::int64_t ReadOnlyBit = 1;

/// The end of the range of the texts that begin with that of a path: the least text behind them.
std::string EndOf(std::string_view path)
{
    std::string end(path);
    ++end.back();  // the separator
    return end;
}

}  // namespace

NodeTable::NodeTable(const std::string& file)
    : m_file(file),
      m_database(OpenSettings(file)),
      m_put(m_database.Prepare("INSERT INTO node VALUES (?1, ?2, ?3) ON CONFLICT (path)"
                               " DO UPDATE SET value = ?2, attributes = ?3")),
      m_erase(m_database.Prepare("DELETE FROM node WHERE path >= ?1 AND path < ?2"))
{}

NodePtr NodeTable::Load()
{
    // A path's text is the beginning of those below it, so parents come first.
    Statement rows = m_database.Prepare("SELECT path, value, attributes FROM node ORDER BY path");
    TreeBuilder builder{std::string()};
    try
    {
        while (rows.Step())
        {
            const auto value = rows.Bytes(1);
            builder.Add(
                rows.Text(0), {value.begin(), value.end()}, (rows.Number(2) & ReadOnlyBit) != 0);
        }
        NodePtr root = builder.Finish({});
        m_database.KeepChanges();
        return root;
    }
    catch (const nvl::Error& error)
    {
        throw DatabaseError(
            fmt::format("Settings database '{}': is corrupt: its rows are no tree: {}",
                        m_file,
                        error.what()),
            false);
    }
}

void NodeTable::Save(const Node* before, const Node* after, std::string path)
{
    Transaction transaction(m_database);
    std::ignore = Compare(before, after, path, this);
    transaction.Commit();
}

void NodeTable::Put(std::string_view path, const Node& node)
{
    m_put.Bind(1, path);
    m_put.Bind(2, node.value);
    m_put.Bind(3, node.isReadOnly ? ReadOnlyBit : 0);
    m_put.Step();
}

void NodeTable::Erase(std::string_view path)
{
    const std::string end = EndOf(path);
    m_erase.Bind(1, path);
    m_erase.Bind(2, end);
    m_erase.Step();
}

}  // namespace settings_manager::service
