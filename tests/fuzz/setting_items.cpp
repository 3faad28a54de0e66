#include "setting_items.h"

#include <algorithm>
#include <cstring>

#include <component/nvl/value.h>

namespace fuzz {
namespace {

using settings_manager::Attributes;
using settings_manager::impl::Raw;
using settings_manager::impl::RawItem;

constexpr char ListOfStrings = '\xFF';
constexpr std::size_t MostItems = 16;

Raw::Block BlockOf(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// The block of a value by its kind, sound if the payload is.
Raw::Block MakeValue(std::uint64_t kind, std::string_view payload)
{
    if (kind == nvl::kind::String)
    {
        return Raw::FromValue(std::string(payload));
    }
    if (kind == nvl::kind::Blob)
    {
        return Raw::FromValue(BlockOf(payload));
    }
    Raw::Block block(Raw::HeaderSize);
    std::memcpy(block.data(), &kind, sizeof(kind));
    std::copy_n(payload.begin(), std::min<std::size_t>(payload.size(), 8), block.begin() + 8);
    return block;
}

RawItem TakeItem(Input& input, std::string& path, std::size_t rootSize, bool isRoot)
{
    const std::uint8_t shape = input.Byte();
    for (unsigned levels = shape % 4; levels > 0 && path.size() > rootSize; --levels)
    {
        path.pop_back();
        path.resize(path.find_last_of('/') + 1);
    }
    const std::string level = TakeLevel(input);
    path += isRoot ? std::string() : level;
    if ((shape & ItemHasAnyPath) != 0)
    {
        path = TakeText(input);
    }
    RawItem item;
    item.path = path;
    item.attrib = (shape & ItemHasAnyAttributes) != 0
                      ? BlockOf(TakeText(input))
                      : Raw::FromAttributes({(shape & ItemIsReadOnly) != 0});
    const std::uint8_t kind = (shape & ItemHasAnyValue) != 0 ? 0 : input.Byte();
    const std::string_view payload = TakeText(input);
    item.value = (shape & ItemHasAnyValue) != 0 ? BlockOf(payload) : MakeValue(kind, payload);
    return item;
}

std::vector<RawItem> MakeList(const std::string& root, unsigned elements)
{
    std::vector<RawItem> items(elements + 1);
    for (unsigned i = 0; i <= elements; ++i)
    {
        items[i].path = i == 0 ? root : root + std::to_string(i - 1) + "/";
        items[i].attrib = Raw::FromAttributes({});
        items[i].value =
            i == 0 ? MakeValue(nvl::kind::List, {}) : Raw::FromValue(std::string(i, 'x'));
    }
    return items;
}

}  // namespace

std::string_view TakeText(Input& input)
{
    const std::uint8_t size = input.Byte();
    return input.Bytes(size);
}

std::string TakeLevel(Input& input)
{
    const std::uint8_t level = input.Byte();
    switch (level % 8)
    {
        case 0:
            return "0/";
        case 1:
            return "1/";
        case 2:
            return std::to_string(level * 257) + "/";
        case 3:
            return "a!/";
        case 4:
            return std::string(level, 'n') + "/";
        default:
            return {static_cast<char>('a' + level % 3), '/'};
    }
}

std::vector<RawItem> TakeItems(Input& input, const std::string& root)
{
    const std::uint8_t count = input.Byte();
    if (count == static_cast<std::uint8_t>(ListOfStrings))
    {
        return MakeList(root, input.Byte());
    }
    std::vector<RawItem> items;
    std::string path = root;
    while (items.size() < count % (MostItems + 1))
    {
        items.push_back(TakeItem(input, path, root.size(), items.empty()));
    }
    return items;
}

std::string SeedText(const std::string& text)
{
    return static_cast<char>(text.size()) + text;
}

std::string SeedItem(unsigned shape, char level, char kind, const std::string& payload)
{
    return std::string{static_cast<char>(shape), level, kind} + SeedText(payload);
}

std::string SeedItems(std::initializer_list<std::string> items)
{
    std::string seed{static_cast<char>(items.size())};
    for (const std::string& item : items)
    {
        seed += item;
    }
    return seed;
}

std::string SeedList(unsigned elements)
{
    return {ListOfStrings, static_cast<char>(elements)};
}

}  // namespace fuzz
