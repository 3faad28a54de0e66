#include <algorithm>

#include <shared/ui_kit/models/menu_model.h>

namespace vdi::uikit::models {

MenuModel::MenuModel(QObject* parent)
    : QAbstractListModel{parent},
      m_roleNames{
          {NameRole, "name"},
          {IdRole, "id"},
          {WidgetRole, "widgetFromModel"},
          {ComponentUrlRole, "componentUrlFromModel"},
      }
{}

int MenuModel::ItemCount() const
{
    return static_cast<int>(m_items.size());
}

std::shared_ptr<MenuItem> MenuModel::GetItemById(unsigned long id) const
{
    const auto found = std::find_if(
        m_items.begin(), m_items.end(), [id](const auto& item) { return item && item->id == id; });
    return found == m_items.end() ? nullptr : *found;
}

QAbstractListModel* MenuModel::AsQAbstractListModel()
{
    return this;
}

int MenuModel::rowCount(const QModelIndex& /*parent*/) const
{
    return ItemCount();
}

QVariant MenuModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const auto& item = m_items[static_cast<std::size_t>(index.row())];
    if (!item)
        return {};
    switch (role)
    {
        case NameRole:
            return item->name;
        case IdRole:
            return qulonglong{item->id};
        case WidgetRole:
            return QVariant::fromValue(item->widget);
        case ComponentUrlRole:
            return item->componentUrl;
        default:
            return {};
    }
}

QHash<int, QByteArray> MenuModel::roleNames() const
{
    return m_roleNames;
}

void MenuModel::AddMenuItem(std::shared_ptr<MenuItem> item)
{
    const auto count = ItemCount();
    beginInsertRows(QModelIndex{}, count, count);
    m_items.push_back(std::move(item));
    endInsertRows();
}

}  // namespace vdi::uikit::models
