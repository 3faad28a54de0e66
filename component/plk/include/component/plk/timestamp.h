#pragma once

#include <compare>
#include <cstdint>

namespace plk::types {

/// A point in time as 64 bits that are kept and handed on as they are. What they count, and from
/// when on, is the owner's business.
struct Timestamp
{
    std::int64_t value = 0;

    friend auto operator<=>(const Timestamp& left, const Timestamp& right) = default;
};

static_assert(sizeof(Timestamp) == 8);

}  // namespace plk::types
