#pragma once

namespace tvoipc::api_v1 {

/// Filled by event loops, which the proxies do without.
struct EventLoopErrorDetails;

/// Decides what an event loop does about a failure.
class IEventLoopErrorHandler
{
public:
    /// @returns 0 to go on
    virtual int OnCommunicationError(const EventLoopErrorDetails& details) = 0;
    virtual int OnResourcesError(const EventLoopErrorDetails& details) = 0;
    virtual ~IEventLoopErrorHandler() = default;
};

/// Goes on after every failure.
class DefaultEventLoopErrorHandler final : public IEventLoopErrorHandler
{
public:
    int OnCommunicationError(const EventLoopErrorDetails& details) override;
    int OnResourcesError(const EventLoopErrorDetails& details) override;
};

}  // namespace tvoipc::api_v1
