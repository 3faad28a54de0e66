#pragma once

#include <cstdint>
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
        const std::string_view byte = Bytes(1);
        return byte.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(byte[0]);
    }

    std::uint16_t Word()
    {
        const std::uint8_t low = Byte();
        return static_cast<std::uint16_t>(low | Byte() << 8);
    }

private:
    std::string_view m_bytes;
};

}  // namespace fuzz
