#include "store_folder.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "runtime_folder.h"

namespace tvo::bench {

StoreFolder::StoreFolder(Medium medium)
    : m_path(medium == Medium::Disk ? RuntimeFolderPath() + "/store-XXXXXX"
                                    : "/dev/shm/tvo-bench-XXXXXX")
{
    if (::mkdtemp(m_path.data()) == nullptr)
    {
        throw std::runtime_error("no folder for a store");
    }
}

StoreFolder::~StoreFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

}  // namespace tvo::bench
