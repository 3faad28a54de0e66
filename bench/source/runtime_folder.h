#pragma once

#include <string>

namespace tvo::bench {

/// A rendezvous folder for the time of a run, given to this process and its children.
class RuntimeFolder
{
public:
    /// @throws std::runtime_error
    RuntimeFolder();
    ~RuntimeFolder();
    RuntimeFolder(const RuntimeFolder&) = delete;
    RuntimeFolder& operator=(const RuntimeFolder&) = delete;

private:
    std::string m_path;
};

/// @returns the path of the folder in use
/// @throws std::runtime_error  there is none
std::string RuntimeFolderPath();

}  // namespace tvo::bench
