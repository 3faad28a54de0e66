#include "leftovers.h"

#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <unistd.h>

namespace support {

namespace {

bool IsHeld(const std::filesystem::path& lock)
{
    const int file = open(lock.c_str(), O_RDWR | O_CLOEXEC);
    struct flock range = {};
    range.l_type = F_WRLCK;
    const bool isHeld = fcntl(file, F_OFD_GETLK, &range) != 0 || range.l_type != F_UNLCK;
    close(file);
    return isHeld;
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::string FindLeftovers(const std::filesystem::path& rendezvous,
                          const std::filesystem::path& folder)
{
    std::string found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(rendezvous))
    {
        const bool isLock = entry.path().extension() == ".lock";
        if (!entry.is_directory() && (!isLock || IsHeld(entry.path())))
        {
            found += entry.path().string() + ' ';
        }
    }
    for (const auto& process : std::filesystem::directory_iterator("/proc"))
    {
        if (ReadFile(process.path() / "environ").find(folder.string()) != std::string::npos)
        {
            found += process.path().string() + ' ' + ReadFile(process.path() / "comm");
        }
    }
    return found;
}

}  // namespace support
