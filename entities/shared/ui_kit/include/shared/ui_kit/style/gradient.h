#pragma once

#include <QColor>
#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace vdi::uikit::utils::style {

/// A colour gradient with two stops, made by the palettes and never changed. A point is a place
/// along the gradient's line, from 0.0 to 1.0.
class Gradient final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Gradients are made by native code only.")
    Q_PROPERTY(QColor startColor READ StartColor NOTIFY GradientChanged)
    Q_PROPERTY(double startPoint READ StartPoint NOTIFY GradientChanged)
    Q_PROPERTY(QColor stopColor READ StopColor NOTIFY GradientChanged)
    Q_PROPERTY(double stopPoint READ StopPoint NOTIFY GradientChanged)

public:
    Gradient(QColor const& start, double startPoint, QColor const& stop, double stopPoint);

    [[nodiscard]] QColor StartColor() const;
    [[nodiscard]] double StartPoint() const;
    [[nodiscard]] QColor StopColor() const;
    [[nodiscard]] double StopPoint() const;

signals:
    void GradientChanged();

private:
    QColor m_startColor;
    double m_startPoint;
    QColor m_stopColor;
    double m_stopPoint;
};

}  // namespace vdi::uikit::utils::style
