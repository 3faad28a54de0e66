#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <support/process.h>

/// A packet with this behind its message's header, and this arena.
inline std::string Packet(std::uint32_t kind,
                          std::uint32_t iidAndMid,
                          const std::string& fields,
                          const std::string& arena = {})
{
    const auto size = static_cast<std::uint32_t>(24 + fields.size());
    const auto arenaSize = static_cast<std::uint32_t>(arena.size());
    const std::uint32_t words[] = {
        0x014F5654, kind, 1, 0, 0, 0, size, arenaSize, iidAndMid, size, 0, 0, 0, 0};
    return std::string(reinterpret_cast<const char*>(words), sizeof(words)) + fields + arena;
}

/// A socket whose owner keeps to no rules.
struct RawClient
{
    explicit RawClient(const std::filesystem::path& path,
                       const std::string& words = {},
                       std::chrono::seconds patience = support::Patience)
    {
        const timeval limit{patience.count(), 0};
        setsockopt(file, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof(limit));
        sockaddr_un address{AF_UNIX, {}};
        path.string().copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(connect(file, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
        EXPECT_TRUE(words.empty() || send(file, words.data(), words.size(), MSG_NOSIGNAL) > 0);
    }

    ~RawClient()
    {
        close(file);
    }

    RawClient(const RawClient&) = delete;

    /// Whether the service says something before it ends the connection.
    [[nodiscard]] bool IsAnswered() const
    {
        char byte = 0;
        return recv(file, &byte, sizeof(byte), 0) > 0;
    }

    const int file = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
};
