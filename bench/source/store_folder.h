#pragma once

#include <string>

namespace tvo::bench {

/// Where a store keeps what it is given. In memory nothing is flushed to the disk, which takes
/// many times what everything else does.
enum class Medium
{
    Disk,
    Memory,
};

/// A new folder for one store, removed with this object.
class StoreFolder
{
public:
    /// @throws std::runtime_error
    explicit StoreFolder(Medium medium);
    ~StoreFolder();
    StoreFolder(const StoreFolder&) = delete;
    StoreFolder& operator=(const StoreFolder&) = delete;

    const std::string& Path() const
    {
        return m_path;
    }

private:
    std::string m_path;
};

}  // namespace tvo::bench
