#include <clocale>

#include "run_settings_manager.h"

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return settings_manager::service::RunSettingsManager(argc, argv);
}
