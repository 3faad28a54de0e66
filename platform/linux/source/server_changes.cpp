#include "server_changes.h"

#include <array>
#include <string>
#include <utility>

#include <sys/inotify.h>

#include "rendezvous.h"

namespace platform {

std::shared_ptr<ServerChanges> ServerChanges::Make()
{
    const int folder = Rendezvous::Instance().Open(Place::Servers, Purpose::Create);
    Descriptor changes(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    // A name is taken, and a service published, by lines written to a lock file.
    const std::string path = "/proc/self/fd/" + std::to_string(folder);
    const bool watched =
        folder >= 0 && changes && ::inotify_add_watch(changes.Get(), path.c_str(), IN_MODIFY) >= 0;
    return watched ? std::make_shared<ServerChanges>(std::move(changes)) : nullptr;
}

ServerChanges::ServerChanges(Descriptor changes) : m_changes(std::move(changes)) {}

void ServerChanges::Reported()
{
    alignas(inotify_event) std::array<char, 4096> ignored;
    while (::read(m_changes.Get(), ignored.data(), ignored.size()) > 0)
    {}
}

}  // namespace platform
