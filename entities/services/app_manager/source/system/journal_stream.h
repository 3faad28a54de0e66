#pragma once

#include <string>

namespace app_manager::service {

/// Where a child's standard output and error go when those of this process go to the journal: there
/// as well, under the child's own name.
class JournalStream final
{
public:
    /// Opens nothing when this process's standard error goes elsewhere.
    explicit JournalStream(const std::string& name);
    ~JournalStream();
    JournalStream(const JournalStream&) = delete;
    JournalStream& operator=(const JournalStream&) = delete;

    /// @returns -1 when nothing is open
    [[nodiscard]] int Descriptor() const
    {
        return m_descriptor;
    }

    /// @returns "JOURNAL_STREAM=...", by which the child knows where its output goes
    [[nodiscard]] std::string Variable() const;

private:
    int m_descriptor = -1;
};

}  // namespace app_manager::service
