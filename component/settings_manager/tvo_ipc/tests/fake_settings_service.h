#pragma once

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <span>
#include <string>
#include <vector>

#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/tvo_ipc/limits.h>
#include <component/settings_manager/tvo_ipc/nodes.h>
#include <component/settings_manager/tvo_ipc/service_names.h>
#include <component/settings_manager/tvo_ipc/wz_ism_cbk.h>
#include <component/settings_manager/tvo_ipc/wz_ism_reg.h>
#include <platform/testing/platform_double.h>
#include <xo/connection.h>

namespace settings_manager::ipc {

/// The service's end of all three interfaces. It keeps one tree and hands out the updates that it
/// is given. A call can be held at its entry, and can be answered otherwise once.
class FakeSettingsService
{
public:
    /// Anything but a good answer. `edit` changes the response.
    struct Answer
    {
        int transport = 0;
        int result = 0;
        bool failed = false;
        std::function<void(wz_message&, wz_arena*)> edit = [](auto&, auto*) {
        };
    };

    static constexpr std::uint32_t Callback = 0xC3;  ///< the connection of WzISMCbk

    explicit FakeSettingsService(platform::testing::PlatformDouble& platform)
    {
        using platform::testing::Call;
        platform.Override<decltype(XoCmConnect)>(
            Call::CmConnect,
            [](auto, const std::string& name, auto, std::uint32_t* handle, std::uint32_t* riid)
            {
                *riid = name == service_names::Ism ? 1 : name == service_names::IsmReg ? 2 : 3;
                *handle = 0xC0 + *riid;
                return 0;
            });
        platform.Override<decltype(XoHandleClose)>(
            Call::HandleClose,
            [this](std::uint32_t handle)
            { return Change([&] { m_isClosed = m_isClosed || handle == Callback; }), 0; });
        platform.Override<platform::testing::TransportCall>(
            Call::TransportCall,
            [this](auto, const wz_message* request, auto* in, wz_message* response, wz_arena* out)
            { return Handle(*request, in, *response, out); });
    }

    // clang-format off
#define ISM(method) vx_settings_manager_WzISM##method##_req
    /// Serves one call; a `Wait` ends with an update or its connection, whatever was unregistered.
    int Handle(const wz_message& request, const wz_arena* in, wz_message& response, wz_arena* out)
    {
        const auto serve = [&]<class... Requests>(Requests...)
        {
            int code = XoBroken;
            (void)((request.iid == Riid<Requests> && request.mid == Requests::Mid &&
                    (code = Serve<Requests>(request, in, response, out), true)) || ...);
            return code;
        };
        return serve(ISM(_Read){}, ISM(_Write){}, ISM(_ReadNext){}, ISM(_WriteNext){},
                     ISM(_Cancel){}, ISM(_GetAttrib){}, ISM(_SetAttrib){}, ISM(_Delete){},
                     ISM(Reg_RegCallback){}, ISM(Reg_UnregCallback){}, ISM(Reg_Subscribe){},
                     ISM(Reg_Unsubscribe){}, ISM(Cbk_Wait){}, ISM(Cbk_Done){});
    }
#undef ISM
    // clang-format on

    void Next(const std::string& method, Answer answer)
    {
        Change([&] { m_answers[method].push_back(std::move(answer)); });
    }

    void Push(SubscriptionId sid, const std::string& at = "a/", unsigned char kinds = 2)
    {
        const auto tell = [=](wz_message& message, wz_arena* out)
        {
            auto& response = reinterpret_cast<vx_settings_manager_WzISMCbk_Wait_res&>(message);
            response.sid = sid;
            response.update = kinds;
            (void)tvo::ipc::arena::WriteText(*out, at, limits::Path, response.path);
        };
        Next("Wait", {.edit = tell});
    }

    /// Keeps further calls of the method back.
    void Hold(const std::string& method)
    {
        const auto shut = [&]
        {
            const long begun = std::ranges::count(m_calls, method);
            long& gate = m_gates.try_emplace(method, begun).first->second;
            gate = std::min(gate, begun);
        };
        Change(shut);
    }

    /// Lets some of them go, in their order, or all.
    void Release(const std::string& method, long times = 1'000'000)
    {
        Change([&] { m_gates[method] += times; });
    }

    /// Names the calls since the last time, without those of the callback thread.
    [[nodiscard]] std::vector<std::string> TakeCalls()
    {
        const std::lock_guard lock(m_mutex);
        auto calls = std::exchange(m_calls, {});
        std::erase(calls, "Wait");
        return calls;
    }

    [[nodiscard]] long Count(const std::string& method)
    {
        const std::lock_guard lock(m_mutex);
        return std::ranges::count(m_calls, method);
    }

    /// Waits until so many calls have begun.
    [[nodiscard]] bool WaitForCall(const std::string& method, long times = 1)
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock,
                                  std::chrono::seconds(5),
                                  [&] { return std::ranges::count(m_calls, method) >= times; });
    }

    std::vector<impl::RawItem> items;
    std::string path;  ///< that came last, as the ones below
    std::uint8_t mode = 0;
    std::uint64_t count = 0;
    std::uint8_t attrib = 0;
    std::map<std::string, SubscriptionId> sids;  ///< which one the subscription of a path gets

private:
    template <class Request>
    static constexpr int Riid =
        std::is_same_v<typename Request::Interface, vx_settings_manager_WzISM>      ? 1
        : std::is_same_v<typename Request::Interface, vx_settings_manager_WzISMReg> ? 2
                                                                                    : 3;

    template <class Work>
    void Change(Work work)
    {
        const std::lock_guard lock(m_mutex);
        work();
        m_changed.notify_all();
    }

    /// Waits for the call's turn. @returns false for a `Wait` without a result
    bool Enter(const std::string& method, std::unique_lock<std::mutex>& lock)
    {
        const long number = std::ranges::count(m_calls, method);
        m_calls.push_back(method);
        m_changed.notify_all();
        m_changed.wait(lock, [&] { return !m_gates.contains(method) || number < m_gates[method]; });
        const auto hasSome = [&]
        {
            return method != "Wait" || !m_answers[method].empty();
        };
        m_changed.wait(lock, [&] { return hasSome() || m_isClosed; });
        return hasSome();
    }

    /// Fills in whatever fields the method has.
    template <class Request>
    int Serve(const wz_message& base, const wz_arena* in, wz_message& answer, wz_arena* out)
    {
        using tvo::ipc::arena::ReadText;
        const auto& request = reinterpret_cast<const Request&>(base);
        auto& response = reinterpret_cast<typename Request::Response&>(answer);
        std::unique_lock lock(m_mutex);
        if (!Enter(Request::Name, lock))
        {
            return WzTimedOut;
        }
        answer.size = sizeof(response);
        // clang-format off
        if constexpr (requires { request.path; })
         { path = ReadText(*in, request.path).value_or("?"); }
        if constexpr (requires { request.name; })
         { path = ReadText(*in, request.name).value_or("?"); }
        if constexpr (requires { request.attrib; }) { attrib = request.attrib; }
        if constexpr (requires { request.mode; }) { mode = request.mode; m_read = 0; }
        if constexpr (requires { request.count; }) { count = request.count; items.clear(); }
        if constexpr (requires { request.nodes; }) { (void)ReadNodes(*in, request.nodes, items); }
        if constexpr (requires { response.nodes; }) { m_read += Pack(*out, response.nodes); }
        if constexpr (requires { response.count; }) { response.count = items.size(); }
        if constexpr (requires { response.last; })
         { response.last = m_read == items.size() ? 1 : 0; }
        if constexpr (requires { response.attrib; }) { response.attrib = attrib; }
        if constexpr (requires { response.token; }) { response.token = 0xABC; }
        if constexpr (requires { response.cid; }) { response.cid = 0xC1D; m_isClosed = false; }
        if constexpr (requires { response.sid; }) { response.sid = sids[path]; }
        // clang-format on
        auto& answers = m_answers[Request::Name];
        const Answer spoilt = answers.empty() ? Answer() : std::move(answers.front());
        answers.erase(answers.begin(), answers.begin() + (answers.empty() ? 0 : 1));
        response.result = spoilt.result;
        answer.size |= spoilt.failed ? WzMessageFailedBit : 0;
        spoilt.edit(answer, out);
        return spoilt.transport;
    }

    std::size_t Pack(wz_arena& out, tvo::ipc::arena::Reference& nodes)
    {
        const auto rest = std::span<const impl::RawItem>(items).subspan(m_read);
        return PackNodes(rest, out, nodes).value_or(0);
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_calls;
    std::map<std::string, long> m_gates;  ///< calls that may pass
    std::map<std::string, std::deque<Answer>> m_answers;
    bool m_isClosed = false;
    std::size_t m_read = 0;
};

}  // namespace settings_manager::ipc
