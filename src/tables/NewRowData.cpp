#include "tables/NewRowData.h"

#include <QFont>

using namespace Qt::StringLiterals;

namespace {
QFont bold()
{
    QFont font;
    font.setBold(true);
    return font;
}
} // namespace

QList<int> NewCellRoles()
{
    return {Qt::FontRole, Qt::AccessibleTextRole};
}

QVariant NewCellData(int role, const QString &first)
{
    if (role == Qt::FontRole)
        return bold();
    if (role == Qt::AccessibleTextRole && !first.isNull())
        return QString(u"New. "_s + first);
    return {};
}

QVariant NewHeaderData(int role, const QDate &since)
{
    switch (role) {
    case newRowRole:
        return true;
    case Qt::DisplayRole:
        return u"\u25CF"_s;
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return QString(u"New since "_s + DayInWords(since));
    default:
        return {};
    }
}

QString DayInWords(const QDate &day)
{
    return day.toString(u"MM/dd/yyyy"_s);
}
