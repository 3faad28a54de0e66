#include "process_figures.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>

namespace soak {

namespace {

using std::filesystem::directory_iterator;
using std::filesystem::path;

template <class Value>
Value ReadFirst(const path& file)
{
    Value value{};
    if (!(std::ifstream(file) >> value))
    {
        throw std::runtime_error("Cannot read " + file.string());
    }
    return value;
}

std::size_t ReadKiB(const path& file, const std::string& name)
{
    std::ifstream lines(file);
    std::string word;
    std::size_t size = 0;
    while (lines >> word)
    {
        if (word == name && lines >> size)
        {
            return size;
        }
    }
    throw std::runtime_error("No " + name + " in " + file.string());
}

}  // namespace

std::chrono::nanoseconds ProcessFigures::Time() const
{
    std::chrono::nanoseconds sum{0};
    for (const auto& [thread, time] : threads)
    {
        sum += time;
    }
    return sum;
}

ProcessFigures ReadFigures(pid_t process)
{
    const path folder = path("/proc") / std::to_string(process);
    ProcessFigures figures;
    figures.residentKiB =
        ReadKiB(folder / "status", "RssAnon:") + ReadKiB(folder / "status", "RssFile:");
    figures.bufferKiB = ReadKiB(folder / "status", "RssShmem:");
    figures.proportionalKiB = ReadKiB(folder / "smaps_rollup", "Pss:");
    figures.descriptors = static_cast<std::size_t>(
        std::distance(directory_iterator(folder / "fd"), directory_iterator()));
    for (const auto& thread : directory_iterator(folder / "task"))
    {
        const auto id = static_cast<pid_t>(std::stoi(thread.path().filename()));
        figures.threads[{id, ReadFirst<std::string>(thread.path() / "comm")}] =
            std::chrono::nanoseconds(ReadFirst<std::int64_t>(thread.path() / "schedstat"));
    }
    return figures;
}

std::ostream& operator<<(std::ostream& out, const ProcessFigures& figures)
{
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    out << "RSS " << figures.residentKiB << " + " << figures.bufferKiB << " KiB, PSS "
        << figures.proportionalKiB << " KiB, " << figures.descriptors
        << " descriptors, threads' ms:";
    for (const auto& [thread, time] : figures.threads)
    {
        out << ' ' << thread.second << ' ' << duration_cast<milliseconds>(time).count();
    }
    return out;
}

}  // namespace soak
