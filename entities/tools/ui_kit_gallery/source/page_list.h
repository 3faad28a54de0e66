#pragma once

#include <QStringList>
#include <QUrl>

namespace ui_kit_gallery {

/// The pages' names in the order of the menu. Each is a document of its own in the resources, and
/// most are called after a component.
[[nodiscard]] QStringList PageNames();

[[nodiscard]] QUrl PageUrl(const QString& name);

}  // namespace ui_kit_gallery
