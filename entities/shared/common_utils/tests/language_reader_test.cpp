#include <cstdlib>

#include <gtest/gtest.h>

#include <shared/common_utils/settings/language_reader.h>

namespace vdi::common_utils::settings {
namespace {

TEST(LanguageReader, PrefersTheEnvironmentUnlessItIsEmpty)
{
    const LanguageReader reader{"en_EN"};
    unsetenv("TVO_LANGUAGE");
    EXPECT_EQ(reader.ReadValue(), "en_EN");
    setenv("TVO_LANGUAGE", "pt-BR", 1);
    EXPECT_EQ(reader.ReadValue(), "pt-BR");
    setenv("TVO_LANGUAGE", "", 1);
    EXPECT_EQ(reader.ReadValue(), "en_EN");
}

}  // namespace
}  // namespace vdi::common_utils::settings
