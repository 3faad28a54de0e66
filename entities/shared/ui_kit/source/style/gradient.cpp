#include <shared/ui_kit/style/gradient.h>

namespace vdi::uikit::utils::style {

Gradient::Gradient(QColor const& start, double startPoint, QColor const& stop, double stopPoint)
    : m_startColor(start), m_startPoint(startPoint), m_stopColor(stop), m_stopPoint(stopPoint)
{}

QColor Gradient::StartColor() const
{
    return m_startColor;
}

double Gradient::StartPoint() const
{
    return m_startPoint;
}

QColor Gradient::StopColor() const
{
    return m_stopColor;
}

double Gradient::StopPoint() const
{
    return m_stopPoint;
}

}  // namespace vdi::uikit::utils::style
