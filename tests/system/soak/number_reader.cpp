#include "number_reader.h"

#include <algorithm>

#include <support/picture.h>

#include "approval_fixture.h"

namespace soak {

namespace {

/// Of the lines that hold digits, without those below that hold underscores.
constexpr int Height = 10;

/// The first column from here on that has ink, or has none.
int NextColumn(const QImage& screen, QPoint from, bool ink)
{
    const auto hasInk = [&](int x)
    {
        int y = from.y();
        while (y < from.y() + Height && screen.pixel(x, y) == PanelGrey)
        {
            ++y;
        }
        return y < from.y() + Height;
    };
    int x = from.x();
    while (x < screen.width() && hasInk(x) != ink)
    {
        ++x;
    }
    return x;
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
    QPoint from = *ink;
    for (Place& place : m_places)
    {
        // A place begins and ends in the blank columns before and behind its digit.
        const int begin = NextColumn(screen, from, true);
        from.setX(NextColumn(screen, {begin, from.y()}, false));
        place.rect =
            digit == 0 ? QRect(begin - 2, from.y(), from.x() - begin + 4, Height) : place.rect;
        place.digits.push_back(screen.copy(place.rect));
    }
    return true;
}

std::optional<std::uint32_t> NumberReader::Read(const QImage& screen) const
{
    std::uint32_t number = 0;
    for (const Place& place : m_places)
    {
        const auto digit = std::ranges::find(place.digits, screen.copy(place.rect));
        if (digit == place.digits.end())
        {
            return std::nullopt;
        }
        number = number * 10 + static_cast<std::uint32_t>(digit - place.digits.begin());
    }
    return number;
}

std::uint32_t NumberOfDigit(std::uint32_t digit)
{
    return static_cast<std::uint32_t>(std::stoul(std::string(AddressDigits, "0123456789"[digit])));
}

}  // namespace soak
