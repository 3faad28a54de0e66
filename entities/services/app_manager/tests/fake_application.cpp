// An application as the manager sees one. With an argument it is one that cannot run.

#include <chrono>
#include <future>

#include <component/app_manager/create_application_manager.h>
#include <component/app_manager/tvo_ipc/command_values.h>

int main(int argc, char** argv)
{
    const char* const name = argv[0];
    const auto manager = app_manager::CreateApplicationManager(name);
    const auto controller = manager->GetApplicationController();
    const auto commands = manager->GetApplicationCommands();
    const auto subscriber =
        std::dynamic_pointer_cast<app_manager::ICommandChangedSubscriber>(commands);
    std::promise<void> closed;
    const auto id = subscriber->RegisterCallback(
        [&]
        {
            long command = 0;
            if (commands->GetCommand(name, command) != 0)
            {
                return;
            }
            if (command == app_manager::commands::CloseWindow)
            {
                closed.set_value();
            }
            else
            {
                controller->StateChanged(name, 10 - command);
            }
        });
    controller->ReadyToInitialize(name);
    if (argc > 1)
    {
        controller->FinishWithInternalError(name, "no window", "nothing to draw on");
        return 1;
    }
    controller->ReadyToShowUI(name);
    auto end = closed.get_future();
    while (end.wait_for(std::chrono::milliseconds(50)) != std::future_status::ready)
    {
        manager->GetApplicationWatchdog()->Ping(name);
    }
    subscriber->UnregisterCallback(id);
    controller->StateChanged(name, app_manager::states::ReadyToShutdown);
    return 0;
}
