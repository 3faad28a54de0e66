#include "words.h"

namespace tvoctl {

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

}  // namespace tvoctl
