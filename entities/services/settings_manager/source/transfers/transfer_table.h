#pragma once

#include <chrono>
#include <cstdint>
#include <unordered_map>
#include <variant>

#include "read_transfer.h"
#include "staged_write.h"

namespace settings_manager::service {

/// The transfers that take more than one message, by token. A token belongs to the connection that
/// has begun the transfer; nobody else can use it.
class TransferTable final
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// How long a transfer may wait for its next message.
    static constexpr std::chrono::seconds Patience{30};

    static constexpr std::size_t MostOfConnection = 16;
    static constexpr std::size_t MostStagedBytes = std::size_t{256} * 1024 * 1024;

    /// @returns the token
    /// @throws nvl::Error `InsufficientResources` at too many transfers of the connection
    template <class Transfer>
    [[nodiscard]] std::uint64_t Add(std::uint64_t connection, Moment now, Transfer transfer)
    {
        return Insert({connection, now, std::move(transfer)});
    }

    /// Takes a transfer out, to be put back when it has not come to its end.
    /// @throws nvl::Error `NotFound` for a token that is not known, not of this connection or not
    /// of
    ///         this kind of transfer
    template <class Transfer>
    [[nodiscard]] Transfer Take(std::uint64_t token, std::uint64_t connection)
    {
        Entry& entry = EntryAt(token, connection);
        auto* const found = std::get_if<Transfer>(&entry.transfer);
        if (found == nullptr)
        {
            RefuseToken();
        }
        Transfer transfer = std::move(*found);
        m_entries.erase(token);
        return transfer;
    }

    /// @throws nvl::Error `InsufficientResources` when the writes hold too much memory together;
    /// the
    ///         transfer is gone then
    template <class Transfer>
    void PutBack(std::uint64_t token, std::uint64_t connection, Moment now, Transfer transfer)
    {
        m_entries.insert_or_assign(token, Entry{connection, now, std::move(transfer)});
        CheckRoom(token);
    }

    /// @throws nvl::Error `NotFound`
    void Remove(std::uint64_t token, std::uint64_t connection);

    void RemoveOf(std::uint64_t connection);

    /// Removes the transfers that have waited too long.
    void RemoveIdle(Moment now);

    [[nodiscard]] bool IsEmpty() const noexcept
    {
        return m_entries.empty();
    }

private:
    struct Entry
    {
        std::uint64_t connection;
        Moment lastUse;
        std::variant<ReadTransfer, StagedWrite> transfer;
    };

    [[nodiscard]] std::uint64_t Insert(Entry entry);
    [[nodiscard]] Entry& EntryAt(std::uint64_t token, std::uint64_t connection);
    [[noreturn]] static void RefuseToken();

    void CheckRoom(std::uint64_t token);

    std::unordered_map<std::uint64_t, Entry> m_entries;
};

}  // namespace settings_manager::service
