#include <component/app_manager/tvo_ipc/control_words.h>

namespace app_manager::control {

const char* EndWord(EndKind kind)
{
    switch (kind)
    {
        case EndKind::Asked:
            return "asked";
        case EndKind::Exit:
            return "exit";
        case EndKind::Crash:
            return "crash";
        case EndKind::Hang:
            return "hang";
        case EndKind::NotReady:
            return "not-ready";
        case EndKind::InternalError:
            return "internal-error";
        case EndKind::NotStarted:
            return "not-started";
    }
    return "?";
}

const char* CommandWord(Command command)
{
    switch (command)
    {
        case Command::Show:
            return "show";
        case Command::Hide:
            return "hide";
        case Command::Close:
            return "close";
        case Command::Restart:
            return "restart";
    }
    return "?";
}

}  // namespace app_manager::control
