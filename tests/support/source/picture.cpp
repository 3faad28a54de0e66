#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <QFont>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <support/picture.h>

namespace support {

namespace {

constexpr int Margin = 8;
// Glyphs are placed on a grid of this many steps a pixel.
constexpr int Steps = 64;

constexpr auto Document = R"(
import QtQuick

Text {
    color: "white"
    font.family: "Vantelore Sans Text"
    textFormat: Text.PlainText
}
)";

bool IsAt(const QImage& picture, const QImage& part, int left, int top)
{
    const auto bytes = static_cast<std::size_t>(part.width()) * sizeof(QRgb);
    for (int y = 0; y < part.height(); ++y)
    {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(top + y)) + left;
        if (std::memcmp(row, part.constScanLine(y), bytes) != 0)
        {
            return false;
        }
    }
    return true;
}

// The smallest part that holds every pixel of another colour than the background.
QImage WithoutMargins(const QImage& image, QRgb background)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
        {
            if (image.pixel(x, y) != background)
            {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return image.copy(ink);
}

class DrawnText final
{
public:
    DrawnText(const std::string& text, const TextStyle& style) : m_background(style.background)
    {
        QQmlComponent component(&m_engine);
        component.setData(Document, QUrl());
        m_item.reset(qobject_cast<QQuickItem*>(component.create()));
        if (!m_item)
        {
            throw std::runtime_error(component.errorString().toStdString());
        }
        auto font = m_item->property("font").value<QFont>();
        font.setPixelSize(style.pixelSize);
        font.setWeight(style.demiBold ? QFont::DemiBold : QFont::Normal);
        m_item->setProperty("font", font);
        m_item->setProperty("text", QString::fromStdString(text));
        if (style.wrapWidth > 0)
        {
            m_item->setProperty("wrapMode", 1);  // Text.WordWrap
            m_item->setWidth(style.wrapWidth);
        }
        m_item->setParentItem(m_window.contentItem());
        m_window.setColor(QColor::fromRgb(style.background));
        m_window.resize(static_cast<int>(m_item->width()) + 2 * Margin,
                        static_cast<int>(m_item->height()) + 2 * Margin);
    }

    // Only the ink, with the text moved to the right by a fraction of a pixel.
    QImage Draw(double fraction)
    {
        m_item->setPosition({Margin + fraction, Margin});
        const QImage image = m_window.grabWindow().convertToFormat(QImage::Format_RGB32);
        return WithoutMargins(image, m_background);
    }

private:
    QRgb m_background;
    QQmlEngine m_engine;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_item;
};

}  // namespace

std::optional<QPoint> FindPart(const QImage& picture, const QImage& part)
{
    for (int y = 0; !part.isNull() && y <= picture.height() - part.height(); ++y)
    {
        for (int x = 0; x <= picture.width() - part.width(); ++x)
        {
            if (IsAt(picture, part, x, y))
            {
                return QPoint(x, y);
            }
        }
    }
    return std::nullopt;
}

std::optional<QPoint> FindText(const QImage& picture,
                               const std::string& text,
                               const TextStyle& style)
{
    DrawnText drawn(text, style);
    std::optional<QPoint> place;
    for (int step = 0; step < Steps && !place; ++step)
    {
        place = FindPart(picture, drawn.Draw(static_cast<double>(step) / Steps));
    }
    return place;
}

void PrepareDrawing()
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_QUICK_BACKEND", "software", 1);
    setenv("FONTCONFIG_FILE", TVO_FONTCONFIG_FILE, 1);
}

}  // namespace support
