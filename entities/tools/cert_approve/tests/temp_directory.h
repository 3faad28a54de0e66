#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace cert_approve {

/// A folder of a test's own, removed with all that is in it.
struct TempDirectory
{
    TempDirectory()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "approveXXXXXX").string();
        path = ::mkdtemp(pattern.data());
    }
    ~TempDirectory()
    {
        std::filesystem::remove_all(path);
    }
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    std::string Write(const std::string& name, const std::string& content) const
    {
        std::ofstream(path / name, std::ios::binary) << content;
        return path / name;
    }

    std::filesystem::path path;
};

}  // namespace cert_approve
