#include "words.h"

namespace tvoctl {

using app_manager::control::EndKind;
using app_manager::control::Kind;
using app_manager::control::State;

const char* KindWord(Kind kind)
{
    return kind == Kind::Service ? "service" : "application";
}

const char* StateWord(State state)
{
    switch (state)
    {
        case State::Waiting:
            return "waiting";
        case State::Starting:
            return "starting";
        case State::Ready:
            return "ready";
        case State::Stopping:
            return "stopping";
        case State::Delayed:
            return "delayed";
        case State::Closed:
            return "closed";
    }
    return "?";
}

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

}  // namespace tvoctl
