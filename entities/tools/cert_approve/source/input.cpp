#include "input.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <tools/cert_approve/failure.h>

#include "descriptor.h"

namespace cert_approve {
namespace {

[[noreturn]] void FailRead(const std::string& name, int error)
{
    throw Failure(ExitStatus::BadInput,
                  fmt::format("cannot read {}: {}", name, std::strerror(error)));
}

std::string ReadAll(int descriptor, const std::string& name)
{
    std::string content;
    std::array<char, 16384> buffer{};
    for (;;)
    {
        const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
        if (count == 0)
        {
            return content;
        }
        if (count > 0)
        {
            content.append(buffer.data(), static_cast<std::size_t>(count));
        }
        else if (errno != EINTR)
        {
            FailRead(name, errno);
        }
        if (content.size() > MaxInputBytes)
        {
            throw Failure(ExitStatus::BadInput,
                          fmt::format("{} is larger than {} bytes", name, MaxInputBytes));
        }
    }
}

}  // namespace

std::string ReadInput(const std::string& path)
{
    if (path == "-")
    {
        return ReadAll(STDIN_FILENO, "standard input");
    }
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    if (!file)
    {
        FailRead(path, errno);
    }
    return ReadAll(file.Get(), path);
}

}  // namespace cert_approve
