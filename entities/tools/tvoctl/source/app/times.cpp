#include "times.h"

#include <array>
#include <ctime>

#include <fmt/format.h>

namespace tvoctl {
namespace {

using app_manager::control::Moment;
using namespace std::chrono;

std::string Format(const char* format, const std::tm& time)
{
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

std::time_t WholeSeconds(Moment moment)
{
    return floor<seconds>(moment).time_since_epoch().count();
}

}  // namespace

std::string IsoText(Moment moment)
{
    const std::time_t whole = WholeSeconds(moment);
    std::tm time{};
    ::gmtime_r(&whole, &time);
    const auto fraction = moment - floor<seconds>(moment);
    return fmt::format("{}.{:06}Z", Format("%Y-%m-%dT%H:%M:%S", time), fraction.count());
}

std::string LocalText(Moment moment)
{
    const std::time_t whole = WholeSeconds(moment);
    std::tm time{};
    ::localtime_r(&whole, &time);
    return Format("%Y-%m-%d %H:%M:%S %z", time);
}

std::string SpanText(milliseconds span)
{
    const hh_mm_ss time(floor<seconds>(span % days{1}));
    if (span >= days{1})
    {
        return fmt::format("{} d {} h", span / days{1}, time.hours().count());
    }
    if (span >= 1h)
    {
        return fmt::format("{} h {} min", time.hours().count(), time.minutes().count());
    }
    if (span >= 1min)
    {
        return fmt::format("{} min {} s", time.minutes().count(), time.seconds().count());
    }
    return fmt::format("{}.{} s", span / 1s, span % 1s / 100ms);
}

}  // namespace tvoctl
