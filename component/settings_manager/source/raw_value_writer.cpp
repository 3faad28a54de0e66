#include <component/nvl/error.h>
#include <component/settings_manager/raw.h>

#include "bytes.h"

namespace settings_manager::impl {
namespace {

constexpr std::size_t InlineOffset = 8;

[[noreturn]] void ThrowInvalidState()
{
    throw nvl::Error(plk::codes::InvalidState, "[RawSetting] Invalid value state");
}

/// Makes the block of each kind, all but the kind itself.
struct Writer
{
    template <class T>
    Raw::Block operator()(const T& scalar) const
    {
        Raw::Block block(Raw::HeaderSize);
        Put(block, InlineOffset, scalar);
        return block;
    }

    Raw::Block operator()(nvl_sm::None /*none*/) const
    {
        return Raw::Block(Raw::HeaderSize);
    }

    Raw::Block operator()(const Setting::List& list) const
    {
        return (*this)(list.size());
    }

    Raw::Block operator()(const Setting::Map& /*map*/) const
    {
        return Raw::Block(Raw::HeaderSize);
    }

    Raw::Block operator()(const std::string& text) const
    {
        return WithPayload(text.data(), text.size(), text.size() + 1);
    }

    Raw::Block operator()(const Setting::Blob& blob) const
    {
        return WithPayload(blob.data(), blob.size(), blob.size());
    }

    static Raw::Block WithPayload(const void* data, std::size_t size, std::size_t length)
    {
        if (data == nullptr && size != 0)
        {
            ThrowInvalidState();
        }
        Raw::Block block(Raw::HeaderSize + length);
        Put(block, InlineOffset, length);
        if (size != 0)
        {
            std::memcpy(block.data() + Raw::HeaderSize, data, size);
        }
        return block;
    }
};

}  // namespace

Raw::Block Raw::FromValue(const Setting::Variant& value)
{
    if (value.index() >= nvl::kind::Count)
    {
        ThrowInvalidState();
    }
    Block block = std::visit(Writer(), value);
    Put(block, 0, value.index());
    return block;
}

}  // namespace settings_manager::impl
