#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "fuzz_target.h"

namespace fuzz {

void PrintTo(const Target& target, std::ostream* out)
{
    *out << target.name;
}

}  // namespace fuzz

class FuzzSeeds : public ::testing::TestWithParam<fuzz::Target>
{};

/// The seeds as they stand, and each with one byte wrong at a time.
TEST_P(FuzzSeeds, KeepEveryPromise)
{
    for (const std::string& seed : fuzz::AllSeeds(GetParam()))
    {
        GetParam().run(seed);
        for (std::size_t i = 0; i < seed.size() && i < 512; ++i)
        {
            std::string damaged = seed;
            damaged[i] = static_cast<char>(damaged[i] ^ static_cast<char>(1 << (i % 8)));
            GetParam().run(damaged);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Targets,
                         FuzzSeeds,
                         ::testing::Values(fuzz::Packets,
                                           fuzz::LockFiles,
                                           fuzz::WireCertificates,
                                           fuzz::CertificateTexts,
                                           fuzz::PathTexts,
                                           fuzz::RawSettings,
                                           fuzz::SettingsRequests),
                         [](const auto& row) { return std::string(row.param.name); });
