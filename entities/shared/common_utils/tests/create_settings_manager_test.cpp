#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/result_codes.h>
#include <platform/testing/platform_double.h>
#include <shared/common_utils/settings/create_settings_manager.h>

namespace vdi::common_utils::settings {
namespace {

using ::platform::testing::Call;
using Manager = std::shared_ptr<settings_manager::ISettingsManager>;

TEST(CreateSettingsManager, ConnectsToTheServiceOfItsStoreAndHandsOnTheFailure)
{
    const std::pair<int (*)(Manager&), std::string> rows[] = {
        {CreateSecretSettingsManagerPersistent, "SecretPSmgr"},
        {CreateRdpSettingsManagerPersistent, "RdpPSmgr"},
        {CreateMerloSettingsManagerPersistent, "MerloPSmgr"},
        {CreateWebSettingsManagerPersistent, "WebPSmgr"},
        {CreateUpdateSettingsManagerPersistent, "UpdatePSmgr"},
        {CreateSettingsManagerNonPersistent, "MSmgr"},
        {CreateSettingsManagerPersistent, "PSmgr"},
    };
    const tvo::logger::testing::RecordingLogger log;
    for (const auto& [create, service] : rows)
    {
        ::platform::testing::PlatformDouble platform;
        platform.Fail(Call::CmConnect, -7);
        Manager manager;
        EXPECT_EQ(create(manager), plk::codes::UnspecifiedError);
        EXPECT_THAT(
            platform.Journal(Call::CmConnect).at(0).arguments,
            ::testing::StartsWith("\"vx.settings_manager." + service + "\", \"WzISM\", 60000"));
        EXPECT_THROW((void)CreateSettingsManagerPersistent(), zin::CheckResultFailedException);
    }
}

}  // namespace
}  // namespace vdi::common_utils::settings
