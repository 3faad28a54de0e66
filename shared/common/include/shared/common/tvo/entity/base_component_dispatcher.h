#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <mutex>
#include <thread>
#include <type_traits>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>
#include <shared/common/tvo/ipc/arena/arena.h>
#include <shared/common/utils/cancellation_token.h>
#include <wz/message.h>
#include <wz/transport.h>
#include <xo/handle.h>

namespace tvo::entity {

/// Serves requests on a thread of its own. `Start` and `Stop` may be called from any thread.
class IComponentDispatcher
{
public:
    virtual ~IComponentDispatcher() = default;

    /// @returns 0, the code "Already done" when it has been started, or the code of what was thrown
    virtual int Start() noexcept = 0;

    /// Waits until the thread has ended: one receive limit at most, and until the handler of a
    /// request that is being served has returned, for which there is no limit. To be called also
    /// after the loop has ended by itself, before it can be started again.
    /// @returns 0, the code "Already done" when it is not started, or the code of what was thrown
    virtual int Stop() noexcept = 0;
};

/// Receives one request after the other on an endpoint, has it dispatched and sends the reply.
///
/// A failed receive or reply changes nothing. A failed dispatch ends the loop: the request is
/// answered with what the response buffer holds, and the endpoint is served no more.
///
/// Buffers and arenas are made once and used for every request. Neither they nor the messages are
/// cleared in between, so a response is what its operation has written over the one before.
template <typename Request,
          typename Response,
          std::uint32_t RequestArenaSize,
          std::uint32_t ResponseArenaSize>
class BaseComponentDispatcher : public IComponentDispatcher
{
    static_assert(std::is_trivially_copyable_v<Request> && std::is_standard_layout_v<Request>);
    static_assert(std::is_trivially_copyable_v<Response> && std::is_standard_layout_v<Response>);
    static_assert(sizeof(Request) >= sizeof(wz_message) && sizeof(Response) >= sizeof(wz_message));
    static_assert(sizeof(Request) <= WzMessageSizeMask);

public:
    static constexpr std::uint16_t InvalidRiid = 65535;

    /// @param riid  interface number that is served
    /// @param handle  endpoint on which requests arrive; stays the caller's
    /// @param receiveTimeout  milliseconds; bounds how late `Stop` is noticed
    /// @throws zin::CheckFailedException  when riid or handle is invalid
    BaseComponentDispatcher(const std::uint16_t& riid,
                            const std::uint32_t& handle,
                            const std::uint32_t& receiveTimeout)
        : m_riid(riid),
          m_handle(handle),
          m_token(std::make_unique<::common::utils::CancellationToken>(Action::Cancel)),
          m_receiveTimeout(receiveTimeout)
    {
        std::memset(&m_request, 0, sizeof(m_request));
        std::memset(&m_response, 0, sizeof(m_response));
        ZIN_CHECK(m_riid != InvalidRiid, "");
        ZIN_CHECK(m_handle != XoInvalidHandle, "");
    }

    /// The class that implements `Dispatch` has to stop before it goes; this is for one whose
    /// constructor has thrown.
    ~BaseComponentDispatcher() override
    {
        BaseComponentDispatcher::Stop();
    }

    BaseComponentDispatcher(const BaseComponentDispatcher&) = delete;
    BaseComponentDispatcher& operator=(const BaseComponentDispatcher&) = delete;

    int Start() noexcept override
    {
        try
        {
            const std::lock_guard lock(m_mutex);
            if (CurrentAction() == Action::Run)
            {
                return plk::codes::AlreadyDone;
            }
            m_token->Resume();
            m_thread = std::thread([this] { DispatcherLoop(); });
            return plk::codes::Ok;
        }
        catch (...)
        {
            const auto [code, text] = ::common::utils::ProcessException();
            TVO_LOG_ERROR(
                "ComponentDispatcher: StartDispatching threw exception [{}, {}]", code, text);
            return code;
        }
    }

    int Stop() noexcept override
    {
        try
        {
            const std::lock_guard lock(m_mutex);
            if (CurrentAction() != Action::Run)
            {
                return plk::codes::AlreadyDone;
            }
            m_token->Pause();
            if (m_thread.joinable())
            {
                m_thread.join();
            }
            return plk::codes::Ok;
        }
        catch (...)
        {
            const auto [code, text] = ::common::utils::ProcessException();
            TVO_LOG_ERROR(
                "ComponentDispatcher: StopDispatching threw exception [{}, {}]", code, text);
            return code;
        }
    }

    /// Serves one request.
    /// @returns false to end the loop once the response is sent
    /// @note thread: the dispatcher's
    virtual bool Dispatch(std::uint16_t riid,
                          const wz_message* request,
                          const wz_arena* requestArena,
                          wz_message* response,
                          wz_arena* responseArena) = 0;

private:
    using Action = ::common::utils::ICancellationToken::ExecutionAction;

    enum class Round
    {
        GoOn,
        End,
    };

    Action CurrentAction() const
    {
        Action action = Action::Cancel;
        m_token->GetExecutionAction(action);
        return action;
    }

    void DispatcherLoop()
    {
        WzTvoTransport_Init(&m_transport, m_handle, nullptr, 0);
        WzTvoSetTransportTimeouts(&m_transport, m_receiveTimeout, WzInfinite);
        ipc::arena::Buffer requestArena(RequestArenaSize);
        ipc::arena::Buffer responseArena(ResponseArenaSize);
        int code = 0;
        while (ServeOne(requestArena, responseArena, code) == Round::GoOn &&
               CurrentAction() == Action::Run)
        {}
        LogEnd(code);
    }

    /// @param code  receives what receive or reply has answered; 0 after a failed dispatch
    Round ServeOne(ipc::arena::Buffer& requestArena, ipc::arena::Buffer& responseArena, int& code)
    {
        auto* request = reinterpret_cast<wz_message*>(&m_request);
        auto* response = reinterpret_cast<wz_message*>(&m_response);
        request->size = (request->size & WzMessageHandleCountMask) |
                        static_cast<std::uint32_t>(sizeof(Request));
        requestArena.Reset();
        responseArena.Reset();

        code = m_transport.operations->receive(&m_transport, request, requestArena.Get());
        if (code != 0)
        {
            return Round::GoOn;
        }
        if (!Dispatch(m_riid, request, requestArena.Get(), response, responseArena.Get()))
        {
            m_transport.operations->reply(&m_transport, response, responseArena.Get());
            return Round::End;
        }
        code = m_transport.operations->reply(&m_transport, response, responseArena.Get());
        return Round::GoOn;
    }

    void LogEnd(int code) const
    {
        const auto level =
            code == 0 || code == WzTimedOut ? logger::LogLevel::Debug : logger::LogLevel::Error;
        TVO_LOG_AS(level,
                   "DispatcherLoop",
                   "ComponentDispatcher: [riid = {}] End of DispatcherLoop with code {}!",
                   m_riid,
                   code);
    }

    const std::uint16_t m_riid;
    const std::uint32_t m_handle;
    std::unique_ptr<::common::utils::ICancellationToken> m_token;
    const std::uint32_t m_receiveTimeout;
    WzTvoTransport m_transport{};
    Request m_request;
    Response m_response;
    std::mutex m_mutex;
    std::thread m_thread;
};

}  // namespace tvo::entity
