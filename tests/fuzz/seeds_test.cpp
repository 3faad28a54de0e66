#include <algorithm>
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

/// The seeds as they stand, and each with one byte wrong at a time, in 128 places at most.
TEST_P(FuzzSeeds, KeepEveryPromise)
{
    for (const std::string& seed : fuzz::AllSeeds(GetParam()))
    {
        GetParam().run(seed);
        const std::size_t places = std::min<std::size_t>(seed.size(), 128);
        for (std::size_t place = 0; place < places; ++place)
        {
            std::string damaged = seed;
            char& byte = damaged[place * seed.size() / places];
            byte = static_cast<char>(byte ^ static_cast<char>(1 << (place % 8)));
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
