#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/exceptions.h>
#include <shared/common_utils/app_utils/get_app_name.h>

namespace common_utils::app_utils {
namespace {

TEST(GetAppName, AnswersTheFirstArgumentWithItsPath)
{
    const char* arguments[] = {"/usr/bin/CertApprover", "more"};
    EXPECT_EQ(GetAppNameOrDefault(2, arguments, "Other"), "/usr/bin/CertApprover");
}

TEST(GetAppName, RefusesAMissingAndAnEmptyNameOrFallsBackWithAnErrorLine)
{
    const tvo::logger::testing::RecordingLogger log;
    const char* empty[] = {""};
    EXPECT_THROW(GetAppName(0, nullptr), zin::CheckFailedException);
    EXPECT_THROW(GetAppName(1, empty), zin::CheckFailedException);
    EXPECT_EQ(GetAppNameOrDefault(1, empty, "CertApprover"), "CertApprover");
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_EQ(log.Lines()[0].level, tvo::logger::LogLevel::Error);
    EXPECT_EQ(log.Lines()[0].message.find("Failed to get an app name[-2147483573]: "), 0U);
}

}  // namespace
}  // namespace common_utils::app_utils
