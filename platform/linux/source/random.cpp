#include <cerrno>

#include <sys/random.h>

#include <tvo/random.h>
#include <xo/result.h>

int TvoRandomGenerate(std::size_t size, void* buffer)
{
    if (buffer == nullptr && size > 0)
    {
        return XoInvalidArgument;
    }
    auto* next = static_cast<unsigned char*>(buffer);
    while (size > 0)
    {
        const ssize_t got = ::getrandom(next, size, 0);
        if (got < 0 && errno != EINTR)
        {
            return XoNoResources;
        }
        if (got > 0)
        {
            next += got;
            size -= static_cast<std::size_t>(got);
        }
    }
    return XoOk;
}
