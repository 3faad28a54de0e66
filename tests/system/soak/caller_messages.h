#pragma once

#include <cstdint>

/// What the driver and the program that keeps its callers say to each other, one packet each.
namespace soak {

enum class Order : std::uint32_t
{
    Start,
    Kill,
};

struct OrderPacket
{
    Order order = Order::Start;
    std::uint32_t number = 0;
};

enum class Event : std::uint32_t
{
    Connected,  ///< the request follows at once
    Approved,
    Closed,
    Failed,   ///< the service was not there, or went before it answered
    Ended,    ///< the process, by itself
    Killed,   ///< the process, as ordered
    Crashed,  ///< the process, in any other way
};

struct Report
{
    Event event = Event::Failed;
    std::uint32_t number = 0;
};

}  // namespace soak
