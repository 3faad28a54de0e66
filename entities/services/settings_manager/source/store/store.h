#pragma once

#include <cstdint>
#include <memory>

#include "change.h"
#include "node_table.h"
#include "tree.h"

namespace settings_manager::service {

/// How a tree is written; the numbers are those of the requests.
enum class WriteMode : std::uint8_t
{
    Create = 1,      ///< where nothing stands
    SetValue = 2,    ///< the value of what stands there; its own attributes stay
    SetSetting = 6,  ///< value and attributes of what stands there
};

/// The settings, in memory for reading and in a table on disk for good. A write is on disk when the
/// operation returns. A refused write throws nvl::Error and has changed nothing:
///
///     Found         there is a setting where one is to be created
///     NotFound      there is none where one is to be read, set or deleted, or no parent to create
///     in NotMatched    the parent is no list for an index, no map for a name AccessDenied  the
///     setting, one above it or one that would be changed below it is read-only Prohibited    the
///     root is to be deleted or to become anything but a map OutOfSpace    the disk is full
///     UnspecifiedPlatformError  the disk fails otherwise
///
/// @note thread: one
class Store final
{
public:
    /// @param table  null: nothing outlives the store
    /// @throws std::runtime_error when the table holds no tree
    explicit Store(std::unique_ptr<NodeTable> table);

    /// The setting with all below it, as it is now.
    [[nodiscard]] Snapshot At(const nvl::Path& path) const;

    /// @param setting  has the last level of the path as its own
    Change Write(WriteMode mode, const nvl::Path& path, const NodePtr& setting);

    /// Read-only is no obstacle here: this is how it is switched off.
    Change SetReadOnly(const nvl::Path& path, bool isReadOnly);

    Change Delete(const nvl::Path& path);

private:
    void CheckMode(WriteMode mode, const nvl::Path& path, const Node* before) const;
    void CheckWritable(const nvl::Path& path) const;

    /// Saves the change and makes it that of the tree.
    Change Apply(const nvl::Path& path, Snapshot before, const NodePtr& after);
    unsigned char Save(const nvl::Path& path, const Node* before, const Node* after);

    std::unique_ptr<NodeTable> m_table;
    Tree m_tree;
};

}  // namespace settings_manager::service
