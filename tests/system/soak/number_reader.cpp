#include "number_reader.h"

#include <algorithm>
#include <cstring>
#include <string>

#include <support/picture.h>

#include "approval_fixture.h"

namespace soak {

namespace {

/// Of the lines that hold digits, without those below that hold underscores.
constexpr int Height = 10;

bool HasInk(const QImage& screen, int column, int top)
{
    for (int y = top; y < top + Height; ++y)
    {
        if (screen.pixel(column, y) != PanelGrey)
        {
            return true;
        }
    }
    return false;
}

/// The first column from here on that has ink, or has none.
int NextColumn(const QImage& screen, int column, int top, bool ink)
{
    while (column < screen.width() && HasInk(screen, column, top) != ink)
    {
        ++column;
    }
    return column;
}

bool Shows(const QImage& screen, const QRect& place, const QImage& digit)
{
    const auto bytes = static_cast<std::size_t>(place.width()) * sizeof(QRgb);
    for (int y = 0; y < place.height(); ++y)
    {
        const auto* row = reinterpret_cast<const QRgb*>(screen.constScanLine(place.top() + y));
        if (std::memcmp(row + place.left(), digit.constScanLine(y), bytes) != 0)
        {
            return false;
        }
    }
    return true;
}

}  // namespace

bool NumberReader::Learn(std::uint32_t digit, const QImage& screen)
{
    // The panel is in the middle of the dialog, and quicker to find than a text.
    const bool isPanel = screen.pixel(screen.rect().center()) == PanelGrey;
    const auto ink = isPanel
                         ? support::FindText(screen, AddressOf(NumberOfDigit(digit)), PanelValue())
                         : std::nullopt;
    if (!ink)
    {
        return false;
    }
    if (digit == 0)
    {
        FindPlaces(screen, *ink);
    }
    for (std::size_t place = 0; place < AddressDigits; ++place)
    {
        m_digits[place].push_back(screen.copy(m_places[place]));
    }
    return true;
}

std::optional<std::uint32_t> NumberReader::Read(const QImage& screen) const
{
    std::uint32_t number = 0;
    for (std::size_t place = 0; place < AddressDigits; ++place)
    {
        const auto& digits = m_digits[place];
        const auto digit = std::ranges::find_if(
            digits, [&](const QImage& known) { return Shows(screen, m_places[place], known); });
        if (digit == digits.end())
        {
            return std::nullopt;
        }
        number = number * 10 + static_cast<std::uint32_t>(digit - digits.begin());
    }
    return number;
}

/// A place begins and ends in the blank columns before and behind its digit.
void NumberReader::FindPlaces(const QImage& screen, QPoint inkBegin)
{
    const int top = inkBegin.y();
    int column = inkBegin.x();
    for (QRect& place : m_places)
    {
        const int begin = NextColumn(screen, column, top, true);
        column = NextColumn(screen, begin, top, false);
        place = QRect(begin - 2, top, column - begin + 4, Height);
    }
}

std::uint32_t NumberOfDigit(std::uint32_t digit)
{
    std::uint32_t number = 0;
    for (std::size_t place = 0; place < AddressDigits; ++place)
    {
        number = number * 10 + digit;
    }
    return number;
}

}  // namespace soak
