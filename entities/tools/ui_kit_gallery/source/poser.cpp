#include "poser.h"

#include <algorithm>
#include <functional>

#include <QGuiApplication>
#include <QHoverEvent>
#include <QMouseEvent>

namespace ui_kit_gallery {
namespace {

using Check = std::function<bool(const QQuickItem&)>;

/// All that the check takes, from the top to the bottom of the pile.
void Collect(QQuickItem& item, const Check& check, QList<QQuickItem*>& found)
{
    auto children = item.childItems();
    std::stable_sort(children.begin(),
                     children.end(),
                     [](const auto* one, const auto* other) { return one->z() < other->z(); });
    std::for_each(
        children.rbegin(), children.rend(), [&](auto* child) { Collect(*child, check, found); });
    if (item.isVisible() && item.isEnabled() && check(item))
        found.push_back(&item);
}

QList<QQuickItem*> Find(QQuickItem& item, const Check& check)
{
    QList<QQuickItem*> found;
    Collect(item, check, found);
    return found;
}

/// @param point  in the item that is posed
Check Holds(const QQuickItem& posed, QPointF point)
{
    return [&posed, point](const QQuickItem& item)
    {
        return item.contains(item.mapFromItem(&posed, point));
    };
}

/// @param point  in the item; the topmost part there that takes the button gets the event
void SendLeftButton(QEvent::Type type, QQuickItem& item, QPointF point)
{
    const auto holds = Holds(item, point);
    const auto takers =
        Find(item,
             [&](const QQuickItem& part)
             { return part.acceptedMouseButtons().testFlag(Qt::LeftButton) && holds(part); });
    if (takers.empty())
        return;
    // A press takes no focus here: that would end the pose of the one that had it.
    if (!takers.front()->hasActiveFocus())
        takers.front()->setProperty("focusPolicy", Qt::NoFocus);
    QMouseEvent event(type,
                      takers.front()->mapFromItem(&item, point),
                      item.mapToScene(point),
                      item.mapToGlobal(point),
                      Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QGuiApplication::sendEvent(takers.front(), &event);
}

}  // namespace

void Poser::hover(QQuickItem* item, QPointF point) const
{
    const auto holds = Holds(*item, point);
    const auto hovered = Find(
        *item, [&](const QQuickItem& part) { return part.acceptHoverEvents() && holds(part); });
    for (auto* part : hovered)
    {
        const auto local = part->mapFromItem(item, point);
        QHoverEvent event(QEvent::HoverEnter, local, item->mapToGlobal(point), QPointF(-1, -1));
        QGuiApplication::sendEvent(part, &event);
    }
}

void Poser::press(QQuickItem* item, QPointF point) const
{
    hover(item, point);
    SendLeftButton(QEvent::MouseButtonPress, *item, point);
}

void Poser::click(QQuickItem* item, QPointF point) const
{
    press(item, point);
    SendLeftButton(QEvent::MouseButtonRelease, *item, point);
}

void Poser::focus(QQuickItem* item) const
{
    const auto stops = Find(*item, [](const QQuickItem& part) { return part.activeFocusOnTab(); });
    (stops.empty() ? item : stops.front())->forceActiveFocus(Qt::TabFocusReason);
}

}  // namespace ui_kit_gallery
