#pragma once

#include <string>
#include <string_view>

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <fmt/format.h>

/// A QString as UTF-8, with the format options of strings.
template <>
struct fmt::formatter<QString> : fmt::formatter<std::string_view>
{
    template <class Context>
    auto format(const QString& text, Context& context) const
    {
        return fmt::formatter<std::string_view>::format(text.toStdString(), context);
    }
};

namespace vdi::common_utils_ui::log {

/// Base of formatters that know no options behind the colon.
struct PlainFormatter
{
    constexpr auto parse(fmt::format_parse_context& context)
    {
        return context.begin();
    }
};

}  // namespace vdi::common_utils_ui::log

template <>
struct fmt::formatter<QPoint> : vdi::common_utils_ui::log::PlainFormatter
{
    template <class Context>
    auto format(const QPoint& point, Context& context) const
    {
        return fmt::format_to(context.out(), "[x:{} y:{}]", point.x(), point.y());
    }
};

template <>
struct fmt::formatter<QSize> : vdi::common_utils_ui::log::PlainFormatter
{
    template <class Context>
    auto format(const QSize& size, Context& context) const
    {
        return fmt::format_to(context.out(), "[w:{} h:{}]", size.width(), size.height());
    }
};

template <>
struct fmt::formatter<QRect> : vdi::common_utils_ui::log::PlainFormatter
{
    template <class Context>
    auto format(const QRect& area, Context& context) const
    {
        return fmt::format_to(context.out(), "[o:{} s:{}]", area.topLeft(), area.size());
    }
};
