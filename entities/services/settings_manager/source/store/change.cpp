#include "change.h"

#include "difference.h"

namespace settings_manager::service {

std::optional<Update> UpdateFor(const nvl::Path& subscribed, const Change& change)
{
    if (change.kinds == 0)
    {
        return std::nullopt;
    }
    if (nvl::StartsWith(change.path, subscribed))
    {
        return Update{change.path, change.kinds};
    }
    if (!nvl::StartsWith(subscribed, change.path))
    {
        return std::nullopt;
    }
    const auto below = subscribed.begin() + static_cast<std::ptrdiff_t>(change.path.size());
    const unsigned char kinds = Compare(Find(change.before, below, subscribed.end()).get(),
                                        Find(change.after, below, subscribed.end()).get());
    return kinds == 0 ? std::nullopt : std::optional(Update{subscribed, kinds});
}

}  // namespace settings_manager::service
