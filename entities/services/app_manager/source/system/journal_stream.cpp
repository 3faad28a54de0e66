#include "system/journal_stream.h"

#include <cstdlib>

#include <fmt/format.h>
#include <sys/stat.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <component/logger/logger.h>

namespace app_manager::service {
namespace {

/// Tells which file a descriptor is, as the variable JOURNAL_STREAM does.
std::string IdentityOf(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 ? fmt::format("{}:{}", status.st_dev, status.st_ino)
                                             : std::string();
}

bool WritesToJournal()
{
    const char* const stream = std::getenv("JOURNAL_STREAM");
    return stream != nullptr && *stream != '\0' && IdentityOf(STDERR_FILENO) == stream;
}

}  // namespace

JournalStream::JournalStream(const std::string& name)
{
    if (!WritesToJournal())
    {
        return;
    }
    const int result = ::sd_journal_stream_fd(name.c_str(), LOG_INFO, 0);
    if (result < 0)
    {
        TVO_LOG_WARNING(
            "{}: writes to the journal under the manager's name, for it has no stream "
            "of its own",
            name);
        return;
    }
    m_descriptor = result;
}

JournalStream::~JournalStream()
{
    if (m_descriptor >= 0)
    {
        ::close(m_descriptor);
    }
}

std::string JournalStream::Variable() const
{
    return "JOURNAL_STREAM=" + IdentityOf(m_descriptor);
}

}  // namespace app_manager::service
