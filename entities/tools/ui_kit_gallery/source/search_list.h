#pragma once

#include <QSortFilterProxyModel>
#include <QStringListModel>

namespace ui_kit_gallery {

/// Names to search in: both models of a combo box that can be searched. The rows are the names that
/// begin with the filter; the names' places, which the functions are about, stay.
class SearchList final : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit SearchList(const QStringList& names);

    Q_INVOKABLE void setFilter(const QString& text);
    Q_INVOKABLE QString GetDescriptionByRow(int row) const;
    /// @returns -1 for a name that is not there
    Q_INVOKABLE int GetIdByDescription(const QString& name) const;

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    QStringListModel m_names;
};

}  // namespace ui_kit_gallery
