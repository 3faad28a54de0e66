#pragma once

#include <optional>
#include <string_view>

#include <component/app_manager/tvo_ipc/limits.h>
#include <shared/common/tvo/ipc/arena/arena.h>
#include <shared/common/tvo/service/service_call.h>

namespace app_manager::service {

using tvo::service::Outcome;
using tvo::service::ServiceCall;

/// A text of a request.
/// @returns nothing when the reference is bad or the text is longer than allowed
[[nodiscard]] inline std::optional<std::string_view> TextIn(
    const ServiceCall& call,
    const tvo::ipc::arena::Reference& reference)
{
    const auto text = tvo::ipc::arena::ReadText(*call.requestArena, reference);
    return text && text->size() <= limits::Text ? text : std::nullopt;
}

/// A request as its record, with the name that each of them begins with.
template <class Request>
struct NamedRequest
{
    /// Fails for a message of another length and for a bad name: both make no sense.
    explicit NamedRequest(const ServiceCall& call) : record(call.Request<Request>())
    {
        if (record != nullptr)
        {
            name = TextIn(call, record->appName);
        }
    }

    explicit operator bool() const
    {
        return name.has_value();
    }

    const Request* record;
    std::optional<std::string_view> name;
};

}  // namespace app_manager::service
