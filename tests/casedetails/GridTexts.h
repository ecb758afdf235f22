#pragma once

#include "records/GridTable.h"

#include <QString>
#include <QStringList>

// Grids as texts, so that a row of test data reads as the grid would look.

/// The lines of a reply written as one text.
inline QStringList ReplyLines(const QString &text)
{
    return text.isEmpty() ? QStringList() : text.split(u'\n');
}

/// "Date 20|Entry 80", then each row with "|" between its cells; "no columns" for an empty grid.
inline QString GridText(const GridTable &table)
{
    if (table.Columns.isEmpty())
        return table.Rows.isEmpty() ? QStringLiteral("no columns")
                                    : QStringLiteral("rows without columns");
    QStringList columns;
    for (const GridColumn &column : table.Columns)
        columns.append(column.Header + u' ' + QString::number(column.Percent));
    QStringList lines{columns.join(u'|')};
    for (const QStringList &row : table.Rows)
        lines.append(row.join(u'|'));
    if (!table.HasHeader)
        lines.prepend(QStringLiteral("no header"));
    return lines.join(u'\n');
}
