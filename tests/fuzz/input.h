#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace fuzz {

/// Reads an input from its front; zeros follow its end.
class Input
{
public:
    explicit Input(std::string_view bytes) : m_bytes(bytes) {}

    bool HasEnded() const
    {
        return m_bytes.empty();
    }

    std::string_view Bytes(std::size_t count)
    {
        const std::string_view taken = m_bytes.substr(0, count);
        m_bytes.remove_prefix(taken.size());
        return taken;
    }

    std::uint8_t Byte()
    {
        return Take<std::uint8_t>();
    }

    std::uint16_t Word()
    {
        return Take<std::uint16_t>();
    }

    template <class Plain>
    Plain Take()
    {
        Plain taken{};
        const std::string_view bytes = Bytes(sizeof(taken));
        std::memcpy(&taken, bytes.data(), bytes.size());
        return taken;
    }

private:
    std::string_view m_bytes;
};

/// What `Input::Take` reads.
template <class Plain>
std::string BytesOf(const Plain& plain)
{
    return {reinterpret_cast<const char*>(&plain), sizeof(plain)};
}

}  // namespace fuzz
