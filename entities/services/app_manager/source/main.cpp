#include <clocale>

#include "run_app_manager.h"

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return app_manager::service::RunAppManager(argc, argv);
}
