#pragma once

class QObject;
class QQmlContext;

namespace common_utils_ui::taskbar::ui {

/// Sets a context property to a view. The view must outlive the QML that reads it.
void PublishView(QQmlContext& context, const char* property, QObject& view);

}  // namespace common_utils_ui::taskbar::ui
