#pragma once

#include <string>
#include <vector>

#include <component/settings_manager/raw_item.h>

#include "input.h"

namespace fuzz {

/// What of an item is not the usual; the low two bits say how many levels the path goes up from the
/// item before.
enum ItemShape : std::uint8_t
{
    ItemIsReadOnly = 4,
    ItemHasAnyPath = 8,
    ItemHasAnyAttributes = 16,
    ItemHasAnyValue = 32,
};

/// Bytes with their number before them, 255 at most.
std::string_view TakeText(Input& input);

/// One level of a path with its separator: few different ones, so that they meet each other.
std::string TakeLevel(Input& input);

/// Reads the items of a tree, or nearly so: the first stands at the root, each other one beside or
/// below the one before it.
/// @param root  the text of a path
std::vector<settings_manager::impl::RawItem> TakeItems(Input& input, const std::string& root);

/// To make seeds of: a text, one item, a number of items.
std::string SeedText(const std::string& text);
std::string SeedItem(unsigned shape, char level, char kind, const std::string& payload = {});
std::string SeedItems(std::initializer_list<std::string> items);

/// As many as 255 items: a list with strings for elements.
std::string SeedList(unsigned elements);

}  // namespace fuzz
