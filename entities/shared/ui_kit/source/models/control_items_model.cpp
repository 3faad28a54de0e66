#include <algorithm>

#include <shared/ui_kit/models/control_items_model.h>

namespace rdp_client::ui {

ControlItemsModel::ControlItemsModel(QObject* parent)
    : QAbstractListModel{parent},
      m_roleNames{
          {ComponentIdRole, "componentIdFromModel"},
          {ComponentUrlRole, "componentUrlFromModel"},
      }
{}

void ControlItemsModel::AddControl(std::unique_ptr<ControlItem> item)
{
    m_items.push_back(std::move(item));
    emit layoutChanged();
}

std::shared_ptr<ControlItem> ControlItemsModel::GetControlItemById(ControlItemId id) const
{
    const auto found = std::find_if(
        m_items.begin(), m_items.end(), [id](const auto& item) { return item && item->id == id; });
    return found == m_items.end() ? nullptr : *found;
}

std::shared_ptr<ControlItem> ControlItemsModel::GetControlItemByIndex(int index) const
{
    if (index < 0 || index >= ControlsCount())
        return nullptr;
    return m_items[static_cast<std::size_t>(index)];
}

int ControlItemsModel::ControlsCount() const
{
    return static_cast<int>(m_items.size());
}

QAbstractListModel* ControlItemsModel::AsQAbstractListModel()
{
    return this;
}

int ControlItemsModel::rowCount(const QModelIndex& /*parent*/) const
{
    return ControlsCount();
}

QVariant ControlItemsModel::data(const QModelIndex& index, int role) const
{
    // The row of an invalid index is -1.
    const auto item = GetControlItemByIndex(index.row());
    if (!item)
        return {};
    switch (role)
    {
        case ComponentIdRole:
            return QVariant::fromValue(item->id);
        case ComponentUrlRole:
            return item->componentUrl;
        default:
            return {};
    }
}

QHash<int, QByteArray> ControlItemsModel::roleNames() const
{
    return m_roleNames;
}

}  // namespace rdp_client::ui
