#pragma once

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "descriptor.h"
#include "lock_file.h"

namespace platform {

/// A name under which this process can be reached: the lock file that holds it and a socket that
/// listens. The socket appears under its name only when it is ready; it goes with this object, but
/// not with a copy in a forked child.
class BoundName final
{
public:
    /// @param folder  stays open for the life of the process
    /// @returns nothing, with one line that says why
    static std::optional<BoundName> Take(int folder,
                                         std::string encodedName,
                                         const std::vector<LockFileLine>& lines);

    BoundName(BoundName&& other) noexcept;
    BoundName& operator=(BoundName&&) = delete;
    ~BoundName();

    /// Hands out the listening socket, which does not block; once.
    Descriptor TakeSocket();

    bool Append(const LockFileLine& line) const;

private:
    BoundName(int folder, std::string encodedName, LockFile lock, Descriptor socket);

    int m_folder;
    pid_t m_process;
    std::string m_encodedName;  ///< empty after a move
    LockFile m_lock;
    Descriptor m_socket;
};

}  // namespace platform
