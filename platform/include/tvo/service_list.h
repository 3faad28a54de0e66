#pragma once

#include <cstdint>

/// What the processes of the rendezvous folder offer at one moment; opaque, used by pointer. Not
/// changed once made, so any thread may read it.
struct STvoServiceList;

/// A number that the kernel would not tell.
inline constexpr std::uint32_t TvoUnknownCount = 0xFFFFFFFF;

/// One service, or one static name. The texts are the list's and live as long as it does; they are
/// another process's and may hold any bytes.
///
/// The counts are those of a process's socket, which all its published services share: whom it has
/// let wait for being taken in, and which connections it holds, those being decided about included.
/// A healthy process leaves nobody waiting. They are unknown where the system keeps them back, and
/// clients in another network namespace may be left out.
struct TvoService
{
    const char* name;           ///< of the service, or the static name
    const char* interfaceName;  ///< empty for a static name
    const char* entity;         ///< the server's name; for a static name empty where none is known
    std::uint32_t isStatic;     ///< 1: reached by `ServiceLocatorConnect`, 0: by `XoCmConnect`
    std::uint32_t pid;          ///< 0: it has not said so yet
    std::uint32_t uid;
    std::uint32_t waiting;
    std::uint32_t served;
};

/// Lists what is published by processes that live, in the order of their entities' names and, of
/// each, of publishing; the static names come behind.
/// @param list  to be released; null on failure
/// @returns 0, or `XoObjectGone` when the rendezvous folder is unusable
int TvoServiceListRead(STvoServiceList** list);

std::uint32_t TvoServiceListSize(const STvoServiceList* list);

/// @param index  below the list's size
TvoService TvoServiceListGet(const STvoServiceList* list, std::uint32_t index);

/// Null is nothing.
void TvoServiceListRelease(STvoServiceList* list);
