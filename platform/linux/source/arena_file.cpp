#include "arena_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace platform {
namespace {

constexpr int Seals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;

bool WriteAll(int file, const unsigned char* bytes, std::size_t size)
{
    while (size > 0)
    {
        const ssize_t written = ::write(file, bytes, size);
        if (written < 0 && errno == EINTR)
        {
            continue;
        }
        if (written <= 0)
        {
            return false;
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace

Descriptor MakeArenaFile(const unsigned char* bytes, std::size_t size)
{
    Descriptor file(::memfd_create("arena", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file || !WriteAll(file.Get(), bytes, size) ||
        ::fcntl(file.Get(), F_ADD_SEALS, Seals | F_SEAL_SEAL) != 0)
    {
        return Descriptor();
    }
    return file;
}

const char* ReadArenaFile(const Descriptor& file, unsigned char* bytes, std::size_t size)
{
    const int seals = ::fcntl(file.Get(), F_GET_SEALS);
    if (seals < 0 || (seals & Seals) != Seals)
    {
        return "an arena that is not sealed";
    }
    struct stat status = {};
    if (::fstat(file.Get(), &status) != 0 || status.st_size != static_cast<off_t>(size))
    {
        return "an arena file of another size";
    }
    std::size_t done = 0;
    while (done < size)
    {
        const ssize_t got =
            ::pread(file.Get(), bytes + done, size - done, static_cast<off_t>(done));
        if (got < 0 && errno == EINTR)
        {
            continue;
        }
        if (got <= 0)
        {
            return "an arena file that cannot be read";
        }
        done += static_cast<std::size_t>(got);
    }
    return nullptr;
}

}  // namespace platform
