#pragma once

#include <memory>

#include <QAbstractListModel>

#include <shared/ui_kit/models/menu_item.h>

namespace vdi::uikit::models {

/// The pages of a side menu, as the program fills them in. For the UI thread only.
class IMenuModel
{
public:
    virtual ~IMenuModel() = default;

    /// Appends the item, also where one with its identifier is there already.
    virtual void AddMenuItem(std::shared_ptr<MenuItem> item) = 0;
    [[nodiscard]] virtual int ItemCount() const = 0;
    /// @returns the first item with the identifier, null without one
    [[nodiscard]] virtual std::shared_ptr<MenuItem> GetItemById(unsigned long id) const = 0;
    /// @returns the model for views; it belongs to this object
    [[nodiscard]] virtual QAbstractListModel* AsQAbstractListModel() = 0;
};

}  // namespace vdi::uikit::models
