#pragma once

#include <QString>

namespace ui_kit_gallery {

/// Writes ui_kit.md, with a chapter for each page, and the pictures ui_kit/NAME-PALETTE.png.
/// @throws std::runtime_error  a page does not come up, or a file can not be written
void WriteDocumentation(const QString& folder);

}  // namespace ui_kit_gallery
