#include <fmt/format.h>

#include <component/nvl/error.h>
#include <component/settings_manager/raw.h>

#include "bytes.h"

namespace settings_manager::impl {
namespace {

constexpr std::size_t AttribSize = 16;
constexpr std::size_t AttribOffset = 8;

}  // namespace

void Raw::Check(const Block& block, unsigned long wanted)
{
    if (block.size() < wanted)
    {
        throw nvl::Error(plk::codes::InvalidSize,
                         fmt::format("[RawSetting] Insufficient raw data size: fact/plan = {}/{}",
                                     block.size(),
                                     wanted));
    }
}

Raw::Block Raw::FromAttributes(const Attributes& attributes)
{
    Block block(AttribSize);
    Put(block, 0, Version);
    Put(block, AttribOffset, attributes.isReadOnly);
    return block;
}

Attributes Raw::ToAttributes(const Block& block)
{
    Check(block, AttribSize);
    const auto version = Get<unsigned long>(block, 0);
    if (version != Version)
    {
        throw nvl::Error(plk::codes::InvalidVersion,
                         fmt::format("[RawSetting] Invalid attrib version: {:#x}", version));
    }
    return {block[AttribOffset] != 0};
}

}  // namespace settings_manager::impl
