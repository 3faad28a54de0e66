#pragma once

#include <cstring>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <component/plk/result_code_text.h>
#include <component/settings_manager/tvo_ipc/limits.h>
#include <component/settings_manager/tvo_ipc/nodes.h>

#include "front/settings_service.h"
#include "store_support.h"

// Requests are written with the fields that matter; the rest is zero.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace settings_manager::service {

using Read = vx_settings_manager_WzISM_Read_req;
using WriteRequest = vx_settings_manager_WzISM_Write_req;
using ReadNext = vx_settings_manager_WzISM_ReadNext_req;
using WriteNext = vx_settings_manager_WzISM_WriteNext_req;
using Cancel = vx_settings_manager_WzISM_Cancel_req;
using GetAttrib = vx_settings_manager_WzISM_GetAttrib_req;
using SetAttrib = vx_settings_manager_WzISM_SetAttrib_req;
using Delete = vx_settings_manager_WzISM_Delete_req;
using RegCallback = vx_settings_manager_WzISMReg_RegCallback_req;
using UnregCallback = vx_settings_manager_WzISMReg_UnregCallback_req;
using Subscribe = vx_settings_manager_WzISMReg_Subscribe_req;
using Unsubscribe = vx_settings_manager_WzISMReg_Unsubscribe_req;
using Wait = vx_settings_manager_WzISMCbk_Wait_req;
using Done = vx_settings_manager_WzISMCbk_Done_req;

using ArenaBuffer = tvo::ipc::arena::Buffer;
using tvo::ipc::arena::Reference;

/// A loop whose requests come from the test; it is never run.
class FakeServiceLoop : public tvo::service::IServiceLoop
{
public:
    using Child = std::unique_ptr<tvo::service::IChild>;
    using Program = tvo::service::ChildProgram;
    using Ended = std::function<void(const tvo::service::ChildEnd&)>;
    using Delay = std::chrono::milliseconds;
    using Served = tvo::service::ServedInterface;
    using Handlers = tvo::service::InterfaceHandlers;

    void Serve(const Served& served, Handlers handlers) override
    {
        interfaces[served.name] = {served, std::move(handlers)};
    }

    int Answer(tvo::service::Ticket, const wz_message* message, const wz_arena* arena) override
    {
        auto& [response, path] = answers.emplace_back();
        std::memcpy(&response, message, sizeof(response));
        path = arena == nullptr ? "" : std::string(arena->start, arena->current);
        return 0;
    }

    void OnTurnEnd(Callback callback) override
    {
        turnEnd = std::move(callback);
    }

    MOCK_METHOD(tvo::service::TimerToken, After, (Delay, Callback), (override));
    MOCK_METHOD(tvo::service::TimerToken, Every, (Delay, Callback), (override));
    MOCK_METHOD(Child, StartChild, (const Program&, Ended), (override));
    MOCK_METHOD(void, OnTermination, (Callback), (override));
    MOCK_METHOD(void, OnReload, (Callback), (override));
    MOCK_METHOD(bool, OnServersChange, (Callback), (override));
    MOCK_METHOD(int, Run, (), (override));
    MOCK_METHOD(void, Stop, (), (override));

    std::map<std::string, std::pair<Served, Handlers>> interfaces;
    std::vector<std::pair<Wait::Response, std::string>> answers;  ///< to deferred requests
    Callback turnEnd;
};

/// A client's connection to one interface of the fake loop.
struct FakeConnection
{
    FakeServiceLoop& loop;
    const char* name;
    std::uint64_t id;
    std::uint64_t sequence = 0;
    std::uint64_t acknowledged = 0;   ///< a test sets it back to have an answer lost
    tvo::service::Outcome outcome{};  ///< of the last request
    ArenaBuffer received{ipc::limits::ChunkArena};

    void End() const
    {
        loop.interfaces.at(name).second.connectionEnded(id);
    }

    template <class Request>
    typename Request::Response Ask(Request request,
                                   wz_arena* arena = nullptr,
                                   std::uint16_t method = Request::Mid,
                                   std::uint32_t size = sizeof(Request))
    {
        const auto& [served, handlers] = loop.interfaces.at(name);
        request.base = {served.riid, method, size, {}};
        typename Request::Response response{};
        response.base = {served.riid, method, sizeof(wz_message), {}};
        received.Reset();
        ArenaBuffer none(0);
        tvo::service::ServiceCall call{};
        call.request = &request.base;
        call.requestArena = arena == nullptr ? none.Get() : arena;
        call.response = &response.base;
        call.responseArena = received.Get();
        call.responseRoom = sizeof(response);
        call.caller = {7, 0, id, acknowledged};
        call.ticket.origin = {id, ++sequence};
        outcome = handlers.serve(call);
        acknowledged = outcome == tvo::service::Outcome::Answer ? sequence : acknowledged;
        return response;
    }

    /// With a path as the only contents of the arena.
    template <class Request>
    typename Request::Response AskAbout(const std::string& path,
                                        Request request,
                                        Reference Request::*field = &Request::path)
    {
        ArenaBuffer arena(path.size() + 1);
        EXPECT_TRUE(tvo::ipc::arena::WriteText(*arena.Get(), path, 1024, request.*field));
        return Ask(request, arena.Get());
    }
};

/// A service in memory, and one client with its three connections.
class FrontTest : public testing::Test
{
protected:
    using Outcome = tvo::service::Outcome;
    using Nodes = std::span<const impl::RawItem>;

    /// Sends the first nodes of a tree as `Write` does.
    WriteRequest::Response Begin(const char* path, Nodes nodes, std::uint64_t count)
    {
        ArenaBuffer arena(ipc::limits::WriteArena);
        WriteRequest request{.mode = vx_settings_manager_WzISM_mode_create, .count = count};
        EXPECT_TRUE(tvo::ipc::arena::WriteText(*arena.Get(), path, 512, request.path));
        EXPECT_TRUE(ipc::PackNodes(nodes, *arena.Get(), request.nodes));
        return ism.Ask(request, arena.Get());
    }

    int Put(const char* path, const Setting& setting)
    {
        const auto items = ItemsOf(path, setting);
        const int result = Begin(path, items, items.size()).result;
        loop.turnEnd();
        return result;
    }

    static Read::Response BeginRead(FakeConnection& connection, const std::string& path)
    {
        return connection.AskAbout(path, Read{.mode = vx_settings_manager_WzISM_mode_read});
    }

    std::uint64_t Register()
    {
        return reg.AskAbout("//cm:", RegCallback{}, &RegCallback::name).cid;
    }

    /// What a wait brings: "path kinds", or the code of a refusal, or "parked".
    std::string Next(std::uint64_t context)
    {
        const auto response = cbk.Ask(Wait{.cid = context});
        const wz_arena& arena = *cbk.received.Get();
        return cbk.outcome == Outcome::Defer
                   ? "parked"
                   : Told({response, std::string(arena.start, arena.current)});
    }

    /// The same for a wait that was parked and is answered by now.
    std::string Late()
    {
        const auto answers = std::exchange(loop.answers, {});
        return answers.empty() ? "nothing" : Told(answers[0]);
    }

    static std::string Told(const std::pair<Wait::Response, std::string>& answer)
    {
        const auto& [response, path] = answer;
        return response.result != 0
                   ? plk::zinx::ResultCodeText(response.result)
                   : fmt::format("{} {}", path.substr(0, response.path.size), response.update);
    }

    Store store{nullptr};
    testing::NiceMock<FakeServiceLoop>& loop = *new testing::NiceMock<FakeServiceLoop>;
    SettingsService service{std::unique_ptr<FakeServiceLoop>(&loop), store};
    FakeConnection ism{loop, "WzISM", 1};
    FakeConnection otherIsm{loop, "WzISM", 2};
    FakeConnection reg{loop, "WzISMReg", 3};
    FakeConnection cbk{loop, "WzISMCbk", 4};
};

}  // namespace settings_manager::service
