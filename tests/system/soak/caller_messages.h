#pragma once

#include <cstdint>
#include <string>

namespace soak {

/// What a caller tells, a letter each.
enum class Event : char
{
    Connected = 'c',  ///< the request follows at once
    Approved = 'a',
    Closed = 'x',
    Failed = 'f',  ///< the service was not there, or went before it answered
};

/// How many digits an address has: enough for a week of callers.
inline constexpr std::size_t AddressDigits = 7;

/// The address that stands for a number. Underscores keep the digits apart in the picture: they lie
/// below them, and are as far from a 7 as from any other digit, which blanks are not.
inline std::string AddressOf(std::uint32_t number)
{
    std::string address;
    for (std::size_t place = 0; place < AddressDigits; ++place, number /= 10)
    {
        address.insert(0, {static_cast<char>('0' + number % 10), '_'});
    }
    address.pop_back();
    return address;
}

}  // namespace soak
