#pragma once

#include <QQuickItem>

namespace ui_kit_gallery {

/// Puts components into the states that only a mouse or a keyboard puts them into. QML knows it as
/// `poser`. What was posed stays so until a real mouse or key comes.
class Poser final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The mouse is over the point of the item.
    Q_INVOKABLE void hover(QQuickItem* item, QPointF point) const;
    /// The mouse is over the point and has its left button down.
    Q_INVOKABLE void press(QQuickItem* item, QPointF point) const;
    Q_INVOKABLE void click(QQuickItem* item, QPointF point) const;
    /// The focus came to the item, or to what takes it in there, by Tab.
    Q_INVOKABLE void focus(QQuickItem* item) const;
};

}  // namespace ui_kit_gallery
