#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>
#include <ostream>
#include <stdexcept>

#include <support/process_figures.h>

namespace support {

namespace {

using std::filesystem::directory_iterator;
using std::filesystem::path;

/// @param name  what stands before the value; nothing for the first word of the file
template <class Value>
Value Read(const path& file, const std::string& name = {})
{
    std::ifstream words(file);
    std::string word;
    while (word != name && words >> word)
    {}
    Value value{};
    if (!(words >> value))
    {
        throw std::runtime_error("Cannot read " + name + " in " + file.string());
    }
    return value;
}

}  // namespace

std::chrono::nanoseconds ProcessFigures::Time() const
{
    return std::transform_reduce(threads.begin(),
                                 threads.end(),
                                 std::chrono::nanoseconds(),
                                 std::plus<>(),
                                 [](const auto& one) { return one.second.time; });
}

std::uint64_t ProcessFigures::Waits() const
{
    return std::transform_reduce(threads.begin(),
                                 threads.end(),
                                 std::uint64_t{},
                                 std::plus<>(),
                                 [](const auto& one) { return one.second.waits; });
}

ProcessFigures ReadFigures(pid_t process)
{
    const path folder = path("/proc") / std::to_string(process);
    const path status = folder / "status";
    ProcessFigures figures;
    figures.residentKiB =
        Read<std::size_t>(status, "RssAnon:") + Read<std::size_t>(status, "RssFile:");
    figures.bufferKiB = Read<std::size_t>(status, "RssShmem:");
    figures.descriptors = static_cast<std::size_t>(
        std::distance(directory_iterator(folder / "fd"), directory_iterator()));
    for (const auto& thread : directory_iterator(folder / "task"))
    {
        figures.threads[std::stoi(thread.path().filename())] = {
            Read<std::string>(thread.path() / "comm"),
            std::chrono::nanoseconds(Read<std::int64_t>(thread.path() / "schedstat")),
            Read<std::uint64_t>(thread.path() / "status", "voluntary_ctxt_switches:")};
    }
    return figures;
}

std::ostream& operator<<(std::ostream& out, const ProcessFigures& figures)
{
    using std::chrono::milliseconds;
    out << "RSS " << figures.residentKiB << " + " << figures.bufferKiB << " KiB, "
        << figures.descriptors << " descriptors, threads' ms:";
    for (const auto& [id, thread] : figures.threads)
    {
        out << ' ' << thread.name << ' '
            << std::chrono::duration_cast<milliseconds>(thread.time).count();
    }
    return out;
}

}  // namespace support
