#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <tvo/task.h>

#include "descriptor.h"

namespace platform {

/// One line of a lock file: what the process that holds the name offers.
struct LockFileLine
{
    enum class Kind
    {
        Process,   ///< number: process id
        Service,   ///< first: interface name, second: service name
        Endpoint,  ///< number: interface number, first: full name, second: interface name
    };

    Kind kind;
    std::uint32_t number = 0;
    std::string first;
    std::string second;
};

std::string FormatLine(const LockFileLine& line);

/// The endpoints of a component tree, the entity's own first.
std::vector<LockFileLine> EndpointLines(const TvoComponentTree& tree);

/// Reads whole lines; what is cut off at the end or makes no sense is left out.
std::vector<LockFileLine> ParseLines(std::string_view text);

/// A name that this process holds: a file that is made once and never removed, with write locks
/// that end with the process. Nobody believes the contents of a former holder.
class LockFile final
{
public:
    /// @returns nothing when another process holds the name, or when the file cannot be made; one
    ///          line tells which
    static std::optional<LockFile> Take(int folder, const std::string& encodedName);

    /// Appends the lines as one write, so that a reader sees whole lines only.
    bool Append(const std::vector<LockFileLine>& lines) const;

private:
    explicit LockFile(Descriptor file) : m_file(std::move(file)) {}

    Descriptor m_file;
};

/// Reads the lock file of a name that a living process holds.
std::optional<std::vector<LockFileLine>> ReadHeldLockFile(int folder,
                                                          const std::string& encodedName);

/// The encoded names of all lock files of the folder, held or not.
std::set<std::string> ListLockFiles(int folder);

inline constexpr std::string_view LockSuffix = ".lock";
inline constexpr std::string_view SocketSuffix = ".sock";

}  // namespace platform
