#include <memory>
#include <sstream>

#include <tvo/service_list.h>

#include "linux_support.h"

namespace platform::tests {
namespace {

constexpr const char* Entity = "vx.tests.Listed";
constexpr const char* StaticName = "listed";

/// What there is, one line each. The process and its user stand as "P" and "U" when they are right.
std::string Listed(pid_t process)
{
    STvoServiceList* read = nullptr;
    EXPECT_EQ(TvoServiceListRead(&read), XoOk);
    const std::unique_ptr<STvoServiceList, void (*)(STvoServiceList*)> list(read,
                                                                            &TvoServiceListRelease);
    std::ostringstream lines;
    for (std::uint32_t i = 0; i < TvoServiceListSize(list.get()); ++i)
    {
        const TvoService service = TvoServiceListGet(list.get(), i);
        lines << service.name << '|' << service.interfaceName << '|' << service.entity << '|'
              << (service.isStatic == 1 ? "static" : "published")
              << (service.pid == static_cast<std::uint32_t>(process) ? "|P" : "|?")
              << (service.uid == ::geteuid() ? "U|" : "?|") << service.waiting << ' '
              << service.served << '\n';
    }
    return lines.str();
}

/// Publishes two services and a static name, lets one client in and looks at no other.
int LetOneIn(const Signal& isPublished)
{
    EXPECT_TRUE(PublishAs(Entity, "first"));
    EXPECT_TRUE(shared::ipc_utils::TryPublishService("vx.other", "second"));
    const Endpoint endpoint(StaticName);
    isPublished.Give();
    char client[XoCmNameSize];
    char service[XoCmNameSize];
    std::uint32_t handle = XoInvalidHandle;
    EXPECT_EQ(XoCmListen(nullptr, WzInfinite, client, service), XoOk);
    EXPECT_EQ(XoCmAccept(client, service, 1, XoInvalidHandle, &handle), XoOk);
    return ::pause();
}

}  // namespace

using ServiceList = LinuxTest;

TEST_F(ServiceList, TellsWhoIsServedAndWhoWaitsForALivingServer)
{
    const Signal isPublished;
    Child server([&] { return LetOneIn(isPublished); });
    isPublished.Await();
    const Client served(Connect(Entity, "first").handle);
    const std::string door = "servers/" + std::string(Entity);
    const RawSocket first = RawSocket::ConnectedTo(door);
    EXPECT_EQ(Listed(server.Pid()),
              "first|vx.tests.Listed|vx.tests.Listed|published|PU|1 1\n"
              "second|vx.other|vx.tests.Listed|published|PU|1 1\n"
              "listed||vx.tests.Listed|static|PU|0 0\n");
    const RawSocket second = RawSocket::ConnectedTo(door);
    const RawSocket third = RawSocket::ConnectedTo("connections/listed");
    EXPECT_EQ(Listed(server.Pid()),
              "first|vx.tests.Listed|vx.tests.Listed|published|PU|2 1\n"
              "second|vx.other|vx.tests.Listed|published|PU|2 1\n"
              "listed||vx.tests.Listed|static|PU|1 0\n");
    server.Kill();
    EXPECT_EQ(Listed(0), "");
}

}  // namespace platform::tests
