#include "fuzz_target.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fuzz {

std::vector<std::string> AllSeeds(const Target& target)
{
    std::vector<std::string> seeds = target.seeds();
    const auto folder = std::filesystem::path(TVO_FUZZ_SEEDS) / target.name;
    std::error_code noFolder;
    for (const auto& entry : std::filesystem::directory_iterator(folder, noFolder))
    {
        std::ifstream file(entry.path(), std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return seeds;
}

void Require(bool holds, const char* what)
{
    if (!holds)
    {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

}  // namespace fuzz
