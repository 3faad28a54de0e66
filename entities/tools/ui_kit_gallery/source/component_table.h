#pragma once

#include <QQmlEngine>
#include <QString>

namespace ui_kit_gallery {

/// What a component of the kit declares beyond its base, as Markdown: a table of its properties,
/// its signals and its functions. Read from a component that is made for it.
/// @param unlisted  properties that are the component's own business
/// @throws std::runtime_error  the component can not be made
[[nodiscard]] QString ComponentTable(QQmlEngine& engine,
                                     const QString& component,
                                     const QStringList& unlisted);

}  // namespace ui_kit_gallery
