#include "service_fixture.h"

#include <cstdlib>

#include <component/settings_manager/tvo_ipc/create_settings_manager.h>
#include <component/settings_manager/tvo_ipc/service_names.h>

using support::Process;

ServiceFixture::ServiceFixture()
{
    ::setenv("TVO_RUNTIME_DIR", folder.c_str(), 1);
}

void ServiceFixture::Start()
{
    const Process::Command command{TVO_SETTINGS_MANAGER, {"--database", folder / "db"}, {}, {}};
    service = std::make_unique<Process>(command);
}

void ServiceFixture::StartAndWait()
{
    Start();
    ASSERT_TRUE(service->WaitForText("is ready")) << service->Errors();
}

std::string ServiceFixture::RunTool(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "settings");
    Process tool({TVO_TVOCTL, std::move(arguments), {}, {}});
    EXPECT_EQ(tool.ExitStatus(), 0) << tool.Errors();
    return tool.Output();
}

Manager Connect()
{
    Manager manager;
    settings_manager::ipc::CreateSettingsManager(
        {.serviceName = settings_manager::service_names::Persistent,
         .connectTimeoutMs = 5000,
         .reserved = 0},
        manager);
    return manager;
}
