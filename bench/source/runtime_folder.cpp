#include "runtime_folder.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace tvo::bench {

RuntimeFolder::RuntimeFolder()
{
    char path[] = "/tmp/tvo-bench-XXXXXX";
    if (::mkdtemp(path) == nullptr)
    {
        throw std::runtime_error("no folder for the rendezvous");
    }
    m_path = path;
    ::setenv("TVO_RUNTIME_DIR", path, 1);
}

RuntimeFolder::~RuntimeFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string RuntimeFolderPath()
{
    const char* const path = std::getenv("TVO_RUNTIME_DIR");
    if (path == nullptr)
    {
        throw std::runtime_error("no folder for the rendezvous");
    }
    return path;
}

}  // namespace tvo::bench
