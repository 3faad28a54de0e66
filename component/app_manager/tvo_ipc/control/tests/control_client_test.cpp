#include <chrono>
#include <future>
#include <thread>

#include <gtest/gtest.h>

#include <component/app_manager/tvo_ipc/control_client.h>
#include <shared/common/tvo/service/i_service_loop.h>
#include <tvo/task.h>

namespace app_manager::control {
namespace {

using tvo::service::Outcome;
using tvo::service::ServiceCall;

/// A manager of 150 applications, one of which never answers, and one answers nonsense.
class Manager
{
public:
    Manager() : m_thread([this] { Run(); })
    {
        m_isServing.get_future().wait();
    }

    ~Manager()
    {
        m_loop->Stop();
        m_thread.join();
    }

    std::string lastCommand;

    static std::vector<Entry> All()
    {
        std::vector<Entry> all;
        for (std::uint32_t i = 0; i < 150; ++i)
        {
            std::string name = std::to_string(i) + std::string(limits::Name - 3, 'n');
            all.push_back({name.substr(0, limits::Name), Kind::Application, State::Ready, i});
        }
        return all;
    }

private:
    void Run()
    {
        const TvoComponentTree tree{"vx.tests.Manager", nullptr, 0, nullptr, 0};
        TvoTaskSetComponentTree(TvoTaskGetSelf(), &tree);
        m_loop = tvo::service::CreateServiceLoop();
        m_loop->Serve({.name = ServiceName,
                       .interfaceName = InterfaceName,
                       .riid = Riid,
                       .largestRequest = sizeof(CommandRequest),
                       .largestResponse = sizeof(StatusResponse),
                       .requestArena = limits::RequestArena,
                       .responseArena = limits::ResponseArena},
                      {.serve = [this](const ServiceCall& call)
                       {
                           return Serve(call);
                       }});
        m_isServing.set_value();
        m_loop->Run();
    }

    Outcome Serve(const ServiceCall& call)
    {
        if (const auto* list = call.Request<ListRequest>(); call.request->mid == ListMid)
        {
            auto& response = call.Response<ListResponse>();
            return PackList(All(), list->first, response, *call.responseArena) ? Outcome::Answer
                                                                               : Outcome::Reject;
        }
        if (const auto* status = call.Request<StatusRequest>(); call.request->mid == StatusMid)
        {
            return TellStatus(*ReadName(*call.requestArena, status->name), call);
        }
        const auto* command = call.Request<CommandRequest>();
        lastCommand = *ReadName(*call.requestArena, command->name);
        call.Response<CommandResponse>().result =
            command->command == static_cast<std::uint8_t>(Command::Restart) ? refusals::NotAllowed
                                                                            : 0;
        return Outcome::Answer;
    }

    static Outcome TellStatus(std::string_view name, const ServiceCall& call)
    {
        if (name == "mute")
        {
            return Outcome::Defer;
        }
        auto& response = call.Response<StatusResponse>();
        response.result = name == "gone" ? refusals::UnknownName : 0;
        return name == "rejected" ? Outcome::Reject : Outcome::Answer;
    }

    std::unique_ptr<tvo::service::IServiceLoop> m_loop;
    std::promise<void> m_isServing;
    std::thread m_thread;
};

}  // namespace

TEST(ControlClient, TellsRefusalsFromAManagerThatIsOfNoUse)
{
    EXPECT_THROW(ConnectControl(std::chrono::milliseconds{0}), NoManager);
    Manager manager;
    const auto client = ConnectControl(std::chrono::seconds{5});
    EXPECT_EQ(client->List(), Manager::All());
    EXPECT_NO_THROW(client->Send("app", Command::Hide));
    EXPECT_EQ(manager.lastCommand, "app");
    EXPECT_THROW(client->Send("app", Command::Restart), Refusal);
    EXPECT_THROW(client->Status("gone"), Refusal);
    EXPECT_THROW(client->Status(std::string(limits::Name + 1, 'x')), Refusal);
    EXPECT_THROW(client->Status(""), Refusal);
    EXPECT_THROW(client->Status("rejected"), NoManager);
    EXPECT_THROW(client->Status("all fields are zero"), NoManager);
    const auto hasty = ConnectControl(std::chrono::seconds{5}, std::chrono::milliseconds{500});
    EXPECT_THROW(hasty->Status("mute"), NoManager);
}

}  // namespace app_manager::control
