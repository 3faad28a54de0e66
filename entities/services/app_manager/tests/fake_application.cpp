// An application that cannot run, as its manager sees it.

#include <component/app_manager/create_application_manager.h>

int main(int /*argc*/, char** argv)
{
    const auto manager = app_manager::CreateApplicationManager(argv[0]);
    return manager->GetApplicationController()->FinishWithInternalError(
               argv[0], "no window", "nothing to draw on") == 0
               ? 1
               : 2;
}
