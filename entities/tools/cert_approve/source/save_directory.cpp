#include "save_directory.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <tools/cert_approve/failure.h>

namespace cert_approve {
namespace {

constexpr mode_t FileMode = 0644;

std::string FileName(const Certificate& certificate)
{
    std::string name;
    for (const unsigned char byte : certificate.Fingerprint())
    {
        fmt::format_to(std::back_inserter(name), "{:02x}", byte);
    }
    return name + ".pem";
}

bool WriteAll(int file, const std::string& text)
{
    std::size_t written = 0;
    while (written < text.size())
    {
        const ssize_t count = ::write(file, text.data() + written, text.size() - written);
        if (count < 0 && errno != EINTR)
        {
            return false;
        }
        written += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return ::fsync(file) == 0;
}

/// Gives a file its final name, which must be free. Not every file system can rename without
/// replacing, and not every one has hard links.
bool Publish(int directory, const std::string& from, const std::string& to)
{
    if (::renameat2(directory, from.c_str(), directory, to.c_str(), RENAME_NOREPLACE) == 0)
    {
        return true;
    }
    if (errno != EINVAL && errno != ENOSYS)
    {
        return false;
    }
    if (::linkat(directory, from.c_str(), directory, to.c_str(), 0) != 0)
    {
        return false;
    }
    ::unlinkat(directory, from.c_str(), 0);
    return true;
}

}  // namespace

SaveDirectory::SaveDirectory(std::string path)
    : m_path(std::move(path)),
      m_directory(::open(m_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (!m_directory || ::faccessat(m_directory.Get(), ".", W_OK | X_OK, AT_EACCESS) != 0)
    {
        throw Failure(ExitStatus::BadInput,
                      fmt::format("cannot save to {}: {}", m_path, std::strerror(errno)));
    }
}

std::string SaveDirectory::Save(const Certificate& certificate) const
{
    const std::string name = FileName(certificate);
    const std::string pem = certificate.Pem();
    if (!Holds(name, pem))
    {
        WriteNew(name, pem);
        ::fsync(m_directory.Get());
    }
    return m_path + (m_path.ends_with('/') ? "" : "/") + name;
}

void SaveDirectory::FailSave(const std::string& name, const std::string& reason) const
{
    throw Failure(ExitStatus::BadInput,
                  fmt::format("cannot save {} in {}: {}", name, m_path, reason));
}

void SaveDirectory::WriteNew(const std::string& name, const std::string& pem) const
{
    const std::string partName = fmt::format(".{}.{}.part", name, ::getpid());
    const Descriptor file(::openat(m_directory.Get(),
                                   partName.c_str(),
                                   O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                   FileMode));
    if (!file)
    {
        FailSave(name, std::strerror(errno));
    }
    if (!WriteAll(file.Get(), pem) || !Publish(m_directory.Get(), partName, name))
    {
        const int error = errno;
        ::unlinkat(m_directory.Get(), partName.c_str(), 0);
        FailSave(name, std::strerror(error));
    }
}

bool SaveDirectory::Holds(const std::string& name, const std::string& pem) const
{
    const Descriptor file(
        ::openat(m_directory.Get(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file)
    {
        return false;
    }
    std::string content(pem.size() + 1, '\0');
    const ssize_t count = ::read(file.Get(), content.data(), content.size());
    return count == static_cast<ssize_t>(pem.size()) && content.compare(0, pem.size(), pem) == 0;
}

}  // namespace cert_approve
