#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>

#include "deadline.h"
#include "descriptor.h"
#include "waitable.h"

namespace platform {

/// What is behind an `STvoWaitSet`: an epoll set, mostly over other epoll sets, which stay with
/// those that read from them. For one thread, but for `Wake`.
class WaitSet final
{
public:
    /// @returns null when there are no descriptors left
    static std::unique_ptr<WaitSet> Make();

    int Add(std::shared_ptr<Waitable> waitable, std::uint64_t key);
    int Remove(std::uint64_t key);
    int Wait(const Deadline& deadline, std::span<std::uint64_t> keys, unsigned long& received);
    void Wake();

private:
    struct Member
    {
        std::shared_ptr<Waitable> waitable;
        std::uint64_t key;
        std::uint64_t reportedIn = 0;  ///< number of the wait
    };

    /// Where a wait puts what is ready.
    struct Report
    {
        std::span<std::uint64_t> keys;
        unsigned long& received;
    };

    WaitSet() = default;
    bool Watch(int descriptor, Member* member);
    void Tell(Member& member, const Report& report) const;
    int TellDue(const Report& report);
    bool TakeWakeUp();

    Descriptor m_epoll;
    Descriptor m_wakeEvent;
    std::map<std::uint64_t, Member> m_members;
    std::uint64_t m_wait = 0;
};

}  // namespace platform
