#pragma once

#include <memory>

#include <QAbstractListModel>

#include <shared/ui_kit/models/control_item.h>

namespace rdp_client::ui {

/// A row of taskbar controls, as the program fills it in. For the UI thread only.
class IControlItemsModel
{
public:
    virtual ~IControlItemsModel() = default;

    /// Appends the item, also where one with its identifier is there already.
    virtual void AddControl(std::unique_ptr<ControlItem> item) = 0;
    /// @returns the first item with the identifier, null without one
    [[nodiscard]] virtual std::shared_ptr<ControlItem> GetControlItemById(
        ControlItemId id) const = 0;
    /// @returns the item of the row, null for a row that is not there
    [[nodiscard]] virtual std::shared_ptr<ControlItem> GetControlItemByIndex(int index) const = 0;
    [[nodiscard]] virtual int ControlsCount() const = 0;
    /// @returns the model for views; it belongs to this object
    [[nodiscard]] virtual QAbstractListModel* AsQAbstractListModel() = 0;
};

}  // namespace rdp_client::ui
