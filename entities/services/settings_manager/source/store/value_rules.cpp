#include "value_rules.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <fmt/format.h>

#include <component/nvl/error.h>
#include <component/nvl/value.h>

namespace settings_manager::service {
namespace {

using impl::Raw;

constexpr std::size_t InlineOffset = 8;

/// How many bytes a value takes of the eight that follow the kind, by kind.
constexpr auto InlineBytes = []
{
    namespace kind = nvl::kind;
    std::array<std::size_t, kind::Count> bytes{};
    bytes[kind::Bool] = bytes[kind::Int8] = bytes[kind::UInt8] = 1;
    bytes[kind::Int16] = bytes[kind::UInt16] = 2;
    bytes[kind::Int32] = bytes[kind::UInt32] = 4;
    bytes[kind::Int64] = bytes[kind::UInt64] = bytes[kind::Double] = bytes[kind::Timestamp] = 8;
    bytes[kind::String] = bytes[kind::Blob] = bytes[kind::List] = 8;
    return bytes;
}();

unsigned long NumberAt(const Raw::Block& block, std::size_t offset)
{
    unsigned long number = 0;
    std::memcpy(&number, block.data() + offset, sizeof(number));
    return number;
}

void CheckSize(const Raw::Block& block, unsigned long kind)
{
    const bool hasPayload = kind == nvl::kind::String || kind == nvl::kind::Blob;
    const unsigned long length = hasPayload ? NumberAt(block, InlineOffset) : 0;
    const bool hasNoEnd = kind == nvl::kind::String && length == 0;
    if (hasNoEnd || block.size() - Raw::HeaderSize != length)
    {
        throw nvl::Error(plk::codes::InvalidSize,
                         fmt::format("value of kind {} in {} bytes, of them {} behind the header",
                                     kind,
                                     block.size(),
                                     length));
    }
}

bool HasStrayBytes(const Raw::Block& block, unsigned long kind)
{
    const auto unused =
        block.begin() + static_cast<std::ptrdiff_t>(InlineOffset + InlineBytes[kind]);
    const bool isStray = std::any_of(
        unused, block.begin() + Raw::HeaderSize, [](unsigned char byte) { return byte != 0; });
    return isStray || (kind == nvl::kind::Bool && block[InlineOffset] > 1) ||
           (kind == nvl::kind::String && block.back() != 0);
}

}  // namespace

void CheckValue(Raw::Block& block)
{
    Raw::Check(block, Raw::HeaderSize);
    const unsigned long kind = NumberAt(block, 0);
    if (kind >= nvl::kind::Count)
    {
        throw nvl::Error(plk::codes::InvalidIndex, fmt::format("unknown kind of value: {}", kind));
    }
    CheckSize(block, kind);
    if (HasStrayBytes(block, kind))
    {
        throw nvl::Error(plk::codes::InvalidArgument,
                         fmt::format("value of kind {} with stray bytes", kind));
    }
    if (kind == nvl::kind::List)
    {
        std::fill(block.begin() + InlineOffset, block.end(), static_cast<unsigned char>(0));
    }
}

}  // namespace settings_manager::service
