#pragma once

#include <cstdint>

/// A program to be started. Only read during the call.
struct TvoProgram
{
    const char* path;              ///< of the file; PATH is not searched
    const char* const* arguments;  ///< the first one is the program's name; null ends them
    const char* const* variables;  ///< whole environment as "NAME=value", null ends it; null: ours
    int output = -1;  ///< descriptor for its standard output and error; -1: those of this process
};

/// How a process has ended.
struct TvoProcessEnd
{
    std::int32_t status;     ///< exit status, or number of the signal that ended it
    std::uint32_t bySignal;  ///< 1: a signal; 0: it has exited
};

enum class TvoProcessSignal
{
    Terminate,  ///< SIGTERM: may be handled
    Abort,      ///< SIGABRT, and SIGCONT, so that a stopped process leaves its core as well
    Kill,       ///< SIGKILL
};

/// Starts a child in a process group of its own, with default signals, none of them blocked, the
/// descriptor limit that this process had at its start, and no descriptors but the standard ones.
/// The kernel kills the child when the thread that has called this ends.
/// @param handle  of the child, to be closed with `XoHandleClose`, which leaves the process alone
/// @param pid  of the child
/// @returns 0, `XoObjectGone` when the file cannot be executed, `XoNoResources`,
///          `XoInvalidArgument`
int TvoProcessStart(const TvoProgram* program, std::uint32_t* handle, std::uint32_t* pid);

/// Sends a signal to the child, also when it has left its process group, and the rest of that.
/// @returns 0, or `XoObjectGone` once the end has been fetched
int TvoProcessSend(std::uint32_t handle, TvoProcessSignal signal);

/// @param server  a name, as given to `XoCmConnect`
/// @returns 0 when a process of the child's group has published a service under the name,
///          `XoTimedOut` when none has yet, `XoObjectGone` once the end has been fetched
int TvoProcessServes(std::uint32_t handle, const char* server);

/// Fetches how the child has ended, without waiting. What is left of its process group is killed.
/// @returns 0, again and again; `XoTimedOut` while it runs; `XoObjectGone` for no such child
int TvoProcessGetEnd(std::uint32_t handle, TvoProcessEnd* end);
