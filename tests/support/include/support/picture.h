#pragma once

#include <optional>
#include <string>

#include <QImage>

namespace support {

/// @returns the topmost, then leftmost place at which the part occurs in the picture, every pixel
/// equal; nothing if it does not occur or is empty. Both are of the format RGB32.
[[nodiscard]] std::optional<QPoint> FindPart(const QImage& picture, const QImage& part);

/// How a text is drawn: white, in the terminal's font, on a plain background.
struct TextStyle
{
    int pixelSize = 16;
    QRgb background = qRgb(0, 0, 0);
    bool demiBold = false;
    /// The width at which words wrap; 0 for a text that does not wrap.
    int wrapWidth = 0;
};

/// Looks for a text by drawing it with the terminal's own font and renderer, at every fraction of a
/// pixel, until the picture holds exactly these pixels. Markup counts as plain text.
///
/// It needs a QGuiApplication made after PrepareDrawing, and is for the main thread.
/// @returns where the ink of the text begins; nothing if the picture does not show it.
[[nodiscard]] std::optional<QPoint> FindText(const QImage& picture,
                                             const std::string& text,
                                             const TextStyle& style);

/// Sets the environment in which Qt draws as it does in the terminal, but without a display.
void PrepareDrawing();

}  // namespace support
