#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include <QImage>

#include "caller_messages.h"

namespace soak {

/// Reads the number of a caller from the picture of its dialog. It learns the digits from dialogs
/// of known numbers and then takes nothing for a digit that differs in a single pixel.
class NumberReader final
{
public:
    /// Learns how a digit looks at each place from the dialog of the number made of that digit
    /// alone, 0 first.
    /// @returns false if the picture does not show that address.
    [[nodiscard]] bool Learn(std::uint32_t digit, const QImage& screen);

    /// @returns the number that the dialog shows; nothing without a dialog or in the midst of one.
    [[nodiscard]] std::optional<std::uint32_t> Read(const QImage& screen) const;

private:
    struct Place
    {
        QRect rect;
        std::vector<QImage> digits;
    };

    std::array<Place, AddressDigits> m_places;
};

/// @returns the number whose address is this digit again and again.
[[nodiscard]] std::uint32_t NumberOfDigit(std::uint32_t digit);

}  // namespace soak
