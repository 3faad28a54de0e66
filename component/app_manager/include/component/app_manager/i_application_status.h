#pragma once

#include <string_view>

namespace app_manager {

/// Reports of one application, which need not repeat its name. Each returns what
/// `IApplicationController` returned; the order of the reports is the application's.
class IApplicationStatus
{
public:
    virtual ~IApplicationStatus() = default;

    virtual int ReadyToInitialize() = 0;
    virtual int ReadyToShowUI() = 0;

    /// The application has stopped serving and is about to exit.
    virtual int ReadyToShutdown() = 0;

    virtual int FinishWithInternalError(std::string_view error, std::string_view description) = 0;
    virtual int StateChanged(long state) = 0;
};

}  // namespace app_manager
