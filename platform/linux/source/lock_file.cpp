#include "lock_file.h"

#include <cerrno>
#include <charconv>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include "log.h"
#include "names.h"

namespace platform {
namespace {

constexpr std::size_t MaxLockFile = std::size_t{64} * 1024;

/// Who holds the first byte has the name, who holds the second one has written what the file says:
/// a new holder empties the file of the former one in between. Both exist only as places to lock.
enum class Claim : off_t
{
    Name,
    Contents,
};

struct flock RangeOf(Claim claim)
{
    struct flock range = {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = static_cast<off_t>(claim);
    range.l_len = 1;
    return range;
}

bool Lock(int file, Claim claim)
{
    struct flock range = RangeOf(claim);
    return ::fcntl(file, F_OFD_SETLK, &range) == 0;
}

bool IsLocked(int file, Claim claim)
{
    struct flock range = RangeOf(claim);
    return ::fcntl(file, F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

std::vector<std::string_view> Split(std::string_view line)
{
    std::vector<std::string_view> words;
    while (true)
    {
        const std::size_t blank = line.find(' ');
        words.push_back(line.substr(0, blank));
        if (blank == std::string_view::npos)
        {
            return words;
        }
        line.remove_prefix(blank + 1);
    }
}

bool ParseNumber(std::string_view word, std::uint32_t& number)
{
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size();
}

bool ParseTexts(std::string_view first, std::string_view second, LockFileLine& line)
{
    const auto decodedFirst = DecodeText(first);
    const auto decodedSecond = DecodeText(second);
    if (!decodedFirst || !decodedSecond)
    {
        return false;
    }
    line.first = *decodedFirst;
    line.second = *decodedSecond;
    return true;
}

std::optional<LockFileLine> ParseLine(std::string_view text)
{
    using Kind = LockFileLine::Kind;
    const auto words = Split(text);
    LockFileLine line{};
    bool valid = false;
    if (words[0] == "process" && words.size() == 2)
    {
        line.kind = Kind::Process;
        valid = ParseNumber(words[1], line.number);
    }
    else if (words[0] == "service" && words.size() == 3)
    {
        line.kind = Kind::Service;
        valid = ParseTexts(words[1], words[2], line);
    }
    else if (words[0] == "endpoint" && words.size() == 4)
    {
        line.kind = Kind::Endpoint;
        valid = ParseNumber(words[1], line.number) && line.number < 0xFFFF &&
                ParseTexts(words[2], words[3], line);
    }
    return valid ? std::optional(line) : std::nullopt;
}

std::string ReadAll(int file)
{
    std::string text(MaxLockFile, '\0');
    std::size_t size = 0;
    while (size < text.size())
    {
        const ssize_t got =
            ::pread(file, text.data() + size, text.size() - size, static_cast<off_t>(size));
        if (got < 0 && errno == EINTR)
        {
            continue;
        }
        if (got <= 0)
        {
            break;
        }
        size += static_cast<std::size_t>(got);
    }
    text.resize(size);
    return text;
}

}  // namespace

std::string FormatLine(const LockFileLine& line)
{
    const std::string texts = EncodeText(line.first) + " " + EncodeText(line.second) + "\n";
    switch (line.kind)
    {
        case LockFileLine::Kind::Process:
            return "process " + std::to_string(line.number) + "\n";
        case LockFileLine::Kind::Service:
            return "service " + texts;
        case LockFileLine::Kind::Endpoint:
            return "endpoint " + std::to_string(line.number) + " " + texts;
    }
    return {};
}

std::vector<LockFileLine> EndpointLines(const TvoComponentTree& tree)
{
    std::vector<LockFileLine> lines;
    const auto add = [&](const TvoEndpointDescription* endpoints, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            const TvoEndpointDescription& endpoint = endpoints[i];
            lines.push_back({LockFileLine::Kind::Endpoint,
                             endpoint.index,
                             endpoint.name,
                             endpoint.interfaceName});
        }
    };
    add(tree.endpoints, tree.endpointCount);
    for (std::size_t i = 0; i < tree.componentCount; ++i)
    {
        add(tree.components[i].endpoints, tree.components[i].endpointCount);
    }
    return lines;
}

std::vector<LockFileLine> ParseLines(std::string_view text)
{
    std::vector<LockFileLine> lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n'))
    {
        if (auto line = ParseLine(text.substr(0, end)))
        {
            lines.push_back(std::move(*line));
        }
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::optional<LockFile> LockFile::Take(int folder, const std::string& encodedName)
{
    const std::string fileName = encodedName + std::string(LockSuffix);
    Descriptor file(::openat(folder,
                             fileName.c_str(),
                             O_RDWR | O_CREAT | O_APPEND | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK,
                             0600));
    if (!file || !Lock(file.Get(), Claim::Name))
    {
        const bool held = file && (errno == EAGAIN || errno == EACCES);
        LogLine(TvoPlatformLogLevel::Error,
                "cannot take the name %s: %s",
                encodedName.c_str(),
                held ? "another process holds it" : std::strerror(errno));
        return std::nullopt;
    }
    if (::ftruncate(file.Get(), 0) != 0 || !Lock(file.Get(), Claim::Contents))
    {
        LogLine(TvoPlatformLogLevel::Error,
                "cannot empty the lock file of %s: %s",
                encodedName.c_str(),
                std::strerror(errno));
        return std::nullopt;
    }
    return LockFile(std::move(file));
}

bool LockFile::Append(const std::vector<LockFileLine>& lines) const
{
    std::string text;
    for (const LockFileLine& line : lines)
    {
        text += FormatLine(line);
    }
    ssize_t written = -1;
    do
    {
        written = ::write(m_file.Get(), text.data(), text.size());
    } while (written < 0 && errno == EINTR);
    if (written == static_cast<ssize_t>(text.size()))
    {
        return true;
    }
    // No room: half a line must not become the beginning of the next one.
    struct stat status = {};
    if (written > 0 && ::fstat(m_file.Get(), &status) == 0 &&
        ::ftruncate(m_file.Get(), status.st_size - written) != 0)
    {
        LogLine(TvoPlatformLogLevel::Error, "a lock file ends with half a line");
    }
    return false;
}

std::optional<std::vector<LockFileLine>> ReadHeldLockFile(int folder,
                                                          const std::string& encodedName)
{
    const std::string fileName = encodedName + std::string(LockSuffix);
    const Descriptor file(
        ::openat(folder, fileName.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
    if (!file || !IsLocked(file.Get(), Claim::Contents))
    {
        return std::nullopt;
    }
    return ParseLines(ReadAll(file.Get()));
}

std::set<std::string> ListLockFiles(int folder)
{
    std::set<std::string> names;
    const int copy = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* directory = copy >= 0 ? ::fdopendir(copy) : nullptr;
    if (directory == nullptr)
    {
        Descriptor unused(copy);
        return names;
    }
    while (const dirent* entry = ::readdir(directory))
    {
        const std::string_view file = entry->d_name;
        if (file.ends_with(LockSuffix))
        {
            names.emplace(file.substr(0, file.size() - LockSuffix.size()));
        }
    }
    ::closedir(directory);
    return names;
}

}  // namespace platform
