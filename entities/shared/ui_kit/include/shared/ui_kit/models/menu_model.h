#pragma once

#include <vector>

#include <shared/ui_kit/models/i_menu_model.h>

namespace vdi::uikit::models {

class MenuModel final : public QAbstractListModel, public IMenuModel
{
    Q_OBJECT

public:
    /// In QML: `name`, `id`, `widgetFromModel`, `componentUrlFromModel`.
    enum Role
    {
        NameRole = Qt::DisplayRole,
        IdRole = Qt::UserRole + 1,
        WidgetRole,
        ComponentUrlRole,
    };

    explicit MenuModel(QObject* parent = nullptr);

    [[nodiscard]] int ItemCount() const override;
    [[nodiscard]] std::shared_ptr<MenuItem> GetItemById(unsigned long id) const override;
    [[nodiscard]] QAbstractListModel* AsQAbstractListModel() override;

    /// The number of items whatever the parent is: views ask for the root alone.
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// @param index  of this model and in its bounds, as views have it, or invalid
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

public slots:
    void AddMenuItem(std::shared_ptr<vdi::uikit::models::MenuItem> item) override;

private:
    std::vector<std::shared_ptr<MenuItem>> m_items;
    QHash<int, QByteArray> m_roleNames;
};

}  // namespace vdi::uikit::models
