#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <utility>

#include <fmt/format.h>

#include <component/nvl/error.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/raw.h>

#include "bytes.h"

namespace settings_manager::impl {
namespace {

constexpr std::size_t InlineOffset = 8;

/// The bytes of header and payload, the largest number there is where they have no sum.
unsigned long SizeWith(unsigned long length)
{
    constexpr auto Largest = std::numeric_limits<unsigned long>::max();
    return length > Largest - Raw::HeaderSize ? Largest : length + Raw::HeaderSize;
}

std::string ReadString(const Raw::Block& block, unsigned long length)
{
    Raw::Check(block, SizeWith(length));
    std::string text;
    text.reserve(length - 1);  // refuses the length 0, which leaves no place for the zero
    text.append(reinterpret_cast<const char*>(block.data()) + Raw::HeaderSize, length - 1);
    return text;
}

Setting::Blob ReadBlob(const Raw::Block& block, unsigned long length)
{
    if (static_cast<long>(length) < 0)
    {
        throw std::length_error("cannot create std::vector larger than max_size()");
    }
    Raw::Check(block, SizeWith(length));
    const auto* const begin = block.data() + Raw::HeaderSize;
    return {begin, begin + length};
}

Setting::List ReadList(unsigned long length)
{
    Setting::List list;
    const unsigned long mostElements = meta::GetIdSpecification().maxIndex + 1;
    list.reserve(length > list.max_size() ? length : std::min(length, mostElements));
    return list;
}

template <std::size_t Kind>
void ReadKind(const Raw::Block& block, Setting::Variant& value)
{
    using T = std::variant_alternative_t<Kind, Setting::Variant>;
    [[maybe_unused]] const auto length = Get<unsigned long>(block, InlineOffset);
    if constexpr (Kind == nvl::kind::List)
    {
        value.emplace<Kind>(ReadList(length));
    }
    else if constexpr (Kind == nvl::kind::String)
    {
        value.emplace<Kind>(ReadString(block, length));
    }
    else if constexpr (Kind == nvl::kind::Blob)
    {
        value.emplace<Kind>(ReadBlob(block, length));
    }
    else if constexpr (Kind == nvl::kind::Bool)
    {
        value.emplace<Kind>(block[InlineOffset] != 0);
    }
    else if constexpr (std::is_trivially_copyable_v<T> && !std::is_empty_v<T>)
    {
        value.emplace<Kind>(Get<T>(block, InlineOffset));
    }
    else
    {
        value.emplace<Kind>();
    }
}

template <std::size_t... Kind>
constexpr auto MakeReaders(std::index_sequence<Kind...> /*kinds*/)
{
    return std::array{&ReadKind<Kind>...};
}

}  // namespace

void Raw::ToValue(const Block& block, Setting::Variant& value)
{
    static constexpr auto Readers = MakeReaders(std::make_index_sequence<nvl::kind::Count>());
    Check(block, HeaderSize);
    const auto kind = Get<unsigned long>(block, 0);
    if (kind >= Readers.size())
    {
        throw nvl::Error(plk::codes::InvalidIndex,
                         fmt::format("[RawSetting] Invalid value index: {}", kind));
    }
    Readers[kind](block, value);
}

}  // namespace settings_manager::impl
