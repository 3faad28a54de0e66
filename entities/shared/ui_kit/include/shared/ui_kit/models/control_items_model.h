#pragma once

#include <vector>

#include <shared/ui_kit/models/i_control_items_model.h>

namespace rdp_client::ui {

/// Views learn of a new row by `layoutChanged`, on which they read the model anew. It never signals
/// inserted rows.
class ControlItemsModel final : public QAbstractListModel, public IControlItemsModel
{
    Q_OBJECT

public:
    /// In QML: `componentIdFromModel`, `componentUrlFromModel`.
    enum Role
    {
        ComponentIdRole = Qt::UserRole + 1,
        ComponentUrlRole,
    };

    explicit ControlItemsModel(QObject* parent);

    void AddControl(std::unique_ptr<ControlItem> item) override;
    [[nodiscard]] std::shared_ptr<ControlItem> GetControlItemById(ControlItemId id) const override;
    [[nodiscard]] std::shared_ptr<ControlItem> GetControlItemByIndex(int index) const override;
    [[nodiscard]] int ControlsCount() const override;
    [[nodiscard]] QAbstractListModel* AsQAbstractListModel() override;

    /// The number of items whatever the parent is: views ask for the root alone.
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<std::shared_ptr<ControlItem>> m_items;
    QHash<int, QByteArray> m_roleNames;
};

}  // namespace rdp_client::ui
