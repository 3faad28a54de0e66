#include <cstdlib>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>

/// Gives the process a rendezvous folder of its own.
int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    std::string folder = (std::filesystem::temp_directory_path() / "tvo-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr)
    {
        return 1;
    }
    ::setenv("TVO_RUNTIME_DIR", folder.c_str(), 1);
    const int result = RUN_ALL_TESTS();
    std::filesystem::remove_all(folder);
    return result;
}
