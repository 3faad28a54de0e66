#include "input.h"

#include <array>
#include <fstream>
#include <istream>

#include <fmt/format.h>

#include "failure.h"

namespace tvoctl {
namespace {

std::string ReadAll(std::istream& stream, const std::string& name)
{
    std::string content;
    std::array<char, 65536> buffer{};
    while (stream && content.size() <= MaxInputBytes)
    {
        stream.read(buffer.data(), buffer.size());
        content.append(buffer.data(), static_cast<std::size_t>(stream.gcount()));
    }
    if (!stream.eof())
    {
        const bool isLarge = content.size() > MaxInputBytes;
        throw Failure(ExitStatus::BadUse,
                      isLarge ? fmt::format("{} is larger than {} bytes", name, MaxInputBytes)
                              : fmt::format("cannot read {}", name));
    }
    return content;
}

}  // namespace

std::string ReadInput(const std::string& path, std::istream& standardInput)
{
    if (path == "-")
    {
        return ReadAll(standardInput, "standard input");
    }
    std::ifstream file(path, std::ios::binary);
    return ReadAll(file, path);
}

}  // namespace tvoctl
