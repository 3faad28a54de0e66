#include "search_list.h"

#include <QRegularExpression>

namespace ui_kit_gallery {

SearchList::SearchList(const QStringList& names) : m_names(names)
{
    setSourceModel(&m_names);
}

void SearchList::setFilter(const QString& text)
{
    setFilterRegularExpression(QRegularExpression('^' + QRegularExpression::escape(text),
                                                  QRegularExpression::CaseInsensitiveOption));
}

QString SearchList::GetDescriptionByRow(int row) const
{
    return m_names.stringList().value(row);
}

int SearchList::GetIdByDescription(const QString& name) const
{
    return static_cast<int>(m_names.stringList().indexOf(name));
}

QHash<int, QByteArray> SearchList::roleNames() const
{
    return {{Qt::DisplayRole, "name"}};
}

}  // namespace ui_kit_gallery
