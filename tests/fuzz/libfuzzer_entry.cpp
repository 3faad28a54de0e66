#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdint>

#include <component/logger/logger.h>
#include <tvo/platform_log.h>

#include "fuzz_target.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    std::setlocale(LC_CTYPE, "C.UTF-8");
    tvo::logger::TVOLogger::Setup("FUZZ", tvo::logger::LogLevel::Off, nullptr);
    TvoPlatformSetLog([](TvoPlatformLogLevel, const char*) {});
    return 0;
}

/// Mutates as usual, but now and then starts from one of the target's seeds, or takes it as it is.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data,
                                               std::size_t size,
                                               std::size_t maxSize,
                                               unsigned random)
{
    static const std::vector<std::string> Seeds = fuzz::AllSeeds(fuzz::TVO_FUZZ_TARGET);
    constexpr unsigned Period = 64;
    if (size <= 1 || random % Period <= 1)
    {
        const std::string& seed = Seeds[random / Period % Seeds.size()];
        size = std::min(seed.size(), maxSize);
        std::copy_n(seed.begin(), size, data);
    }
    return size > 0 && random % Period == 0 ? size : LLVMFuzzerMutate(data, size, maxSize);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::TVO_FUZZ_TARGET.run({reinterpret_cast<const char*>(data), size});
    return 0;
}
