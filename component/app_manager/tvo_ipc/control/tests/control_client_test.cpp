#include <gtest/gtest.h>

#include <component/app_manager/tvo_ipc/control_client.h>
#include <platform/testing/platform_double.h>

namespace app_manager::control {
namespace {

using namespace std::chrono_literals;

/// The list of 150 applications, which takes several messages.
std::vector<Entry> All()
{
    std::vector<Entry> all;
    for (std::uint32_t i = 0; i < 150; ++i)
    {
        const std::string name = std::to_string(i) + std::string(limits::Name - 3, 'n');
        all.push_back({name.substr(0, limits::Name), Kind::Application, State::Ready, i});
    }
    return all;
}

}  // namespace

TEST(ControlClient, TellsRefusalsFromAManagerThatIsOfNoUse)
{
    EXPECT_THROW(ConnectControl(0ms), NoManager);
    int transport = XoOk;
    std::uint32_t failed = 0;
    int result = 0;
    std::string named;
    std::uint32_t limit = 0;
    platform::testing::PlatformDouble platform;
    platform.Serve(Riid,
                   [&](auto* from, auto* request, auto* in, auto* response, auto* out)
                   {
                       limit = from->callTimeout;
                       if (const auto* list = reinterpret_cast<const ListRequest*>(request);
                           request->mid == ListMid)
                       {
                           auto& answer = *reinterpret_cast<ListResponse*>(response);
                           EXPECT_TRUE(PackList(All(), list->first, answer, *out));
                           return XoOk;
                       }
                       const auto* command = reinterpret_cast<const CommandRequest*>(request);
                       named = ReadName(*in, command->name).value_or("?");
                       request->mid == CommandMid
                           ? reinterpret_cast<CommandResponse*>(response)->result = result
                           : reinterpret_cast<StatusResponse*>(response)->result = result;
                       response->size |= failed;
                       return transport;
                   });
    const auto client = ConnectControl(5s, 500ms);
    EXPECT_EQ(client->List(), All());
    EXPECT_EQ(limit, 500U);
    EXPECT_NO_THROW(client->Send("app", Command::Hide));
    EXPECT_EQ(named, "app");
    EXPECT_THROW(client->Status("all fields are zero"), NoManager);
    result = refusals::NotAllowed;
    EXPECT_THROW(client->Send("app", Command::Restart), Refusal);
    EXPECT_THROW(client->Status("gone"), Refusal);
    EXPECT_THROW(client->Status(std::string(limits::Name + 1, 'x')), Refusal);
    EXPECT_THROW(client->Status(""), Refusal);
    EXPECT_EQ(named, "gone") << "nobody was asked about a bad name";
    failed = WzMessageFailedBit;
    EXPECT_THROW(client->Status("rejected"), NoManager);
    transport = WzTimedOut;
    EXPECT_THROW(client->Status("mute"), NoManager);
}

}  // namespace app_manager::control
