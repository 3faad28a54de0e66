#pragma once

#include <cstdint>
#include <optional>

#include <xo/handle.h>

namespace app_manager::service {

/// The command that stands for one process of an application, and the event object that tells it.
/// It goes with the process.
class CommandSlot final
{
public:
    /// Makes the event object; without resources for it, commands are not announced.
    CommandSlot();
    ~CommandSlot();
    CommandSlot(const CommandSlot&) = delete;
    CommandSlot& operator=(const CommandSlot&) = delete;

    /// Puts the command in place of the one before and announces it. A command to close stays.
    void Set(std::int64_t command);

    /// @returns nothing when there was no command yet
    std::optional<std::int64_t> Fetch();

    /// Announces a command once more that nobody has fetched: who was told early did not listen.
    void AnnounceAgain() const;

    /// @returns the end for the application, or `XoInvalidHandle`
    [[nodiscard]] std::uint32_t UpdateHandle() const
    {
        return m_waiter;
    }

private:
    std::uint32_t m_setter = XoInvalidHandle;
    std::uint32_t m_waiter = XoInvalidHandle;
    std::optional<std::int64_t> m_command;
    bool m_isFetched = true;
};

}  // namespace app_manager::service
