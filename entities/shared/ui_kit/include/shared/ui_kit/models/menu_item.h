#pragma once

#include <cstdint>

#include <QObject>
#include <QString>
#include <QUrl>

namespace vdi::uikit::models {

/// A page of a window with a side menu.
struct MenuItem
{
    QString name;
    /// The caller's own; the model does not insist that it is unique.
    std::uint64_t id = 0;
    QUrl componentUrl;
    /// Belongs to the page, which keeps it alive for as long as the item is in a model.
    QObject* widget = nullptr;
};

}  // namespace vdi::uikit::models
