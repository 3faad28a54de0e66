#include <QQmlContext>
#include <QString>

#include <shared/common_utils_ui/ui/taskbar/publish_view.h>

namespace common_utils_ui::taskbar::ui {

void PublishView(QQmlContext& context, const char* property, QObject& view)
{
    context.setContextProperty(QLatin1String(property), &view);
}

}  // namespace common_utils_ui::taskbar::ui
