#pragma once

#include <array>
#include <string>

#include "wire.h"

namespace fuzz {

/// The buffers of a receiver, with a fence behind each. One at a time.
class Mailbox
{
public:
    /// Opens the descriptors that stay open as long as the process.
    static void OpenWhatStays();

    /// Takes the rooms from the input's first four bytes.
    explicit Mailbox(Input& input);

    /// Makes the buffers ready for the next message.
    void Arm();

    wz_message* Message()
    {
        return reinterpret_cast<wz_message*>(m_message.data());
    }

    wz_arena* Arena()
    {
        return m_room.arena == 0 ? nullptr : &m_arena;
    }

    /// Whether the packet, which is sound, has room here.
    bool HasRoomFor(const std::string& packet) const;

    /// Nothing was written beyond the rooms.
    void RequireFences() const;

    /// The packet has come whole, and nothing else; closes its handles.
    void RequireDelivered(const Parcel& parcel);

private:
    void RequireHandles(const Parcel& parcel, std::size_t count);

    platform::MessageRoom m_room;
    alignas(16) std::array<unsigned char, platform::MaxMessageBytes + 64> m_message;
    unsigned char* m_arenaBytes;
    wz_arena m_arena{};
};

/// The first bytes of an input for a mailbox of these rooms.
/// @param arena  in steps of 256 bytes; 255 stands for the largest
std::string Rooms(std::uint16_t message, std::uint8_t arena, std::uint8_t handles);

/// Sends a message, made of the input, as an honest process does.
/// @returns false for a message that is none
bool SendHonestly(Input& input, const Honest& honest, int socket);

}  // namespace fuzz
