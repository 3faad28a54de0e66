#pragma once

#include <string>
#include <string_view>

#include "node.h"

namespace settings_manager::service {

/// Is told which rows make the one tree out of the other.
class IRowSink
{
public:
    virtual ~IRowSink() = default;

    /// A node that is new or has another value or other attributes.
    virtual void Put(std::string_view path, const Node& node) = 0;

    /// A node that is gone with all below it.
    virtual void Erase(std::string_view path) = 0;
};

/// Compares two states of one setting, null where it is not there.
/// @param path  the text of its path; comes back as it was
/// @param rows  null if nobody wants to know
/// @returns what has happened, as kinds of `update`, 0 for equal trees. The value of a list or map
///          is all that is below it; an attribute counts at whatever depth it has changed.
[[nodiscard]] unsigned char Compare(const Node* before,
                                    const Node* after,
                                    std::string& path,
                                    IRowSink* rows);

/// The same without rows.
[[nodiscard]] unsigned char Compare(const Node* before, const Node* after);

}  // namespace settings_manager::service
