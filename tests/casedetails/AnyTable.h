#pragma once

#include "core/Windows1252.h"
#include "records/GridTable.h"

#include <QRandomGenerator>
#include <QString>
#include <QStringList>

// Tables by the dice, and the replies that carry them.

enum class TableGrammar { GridDef, ColDefGrouped, ColDefInterleaved, Names };

/// A field of any character that a line can carry, but what delimits or marks, and the blanks at
/// either end that a cell loses.
inline QString AnyField(QRandomGenerator &random, const QString &without)
{
    // What marks are made of comes more often than by chance, so that halves of them are met.
    static const QByteArray ofMarks = "<BRC> ";
    QByteArray bytes;
    for (int length = static_cast<int>(random.bounded(12)); length > 0; --length) {
        const bool any = random.bounded(3) > 0;
        bytes.append(any ? static_cast<char>(random.bounded(256))
                         : ofMarks[random.bounded(ofMarks.size())]);
    }
    QString field = FromWindows1252(bytes);
    for (const QChar delimiter : without)
        field.remove(delimiter);
    field.remove(QStringLiteral("<BR>")).remove(QStringLiteral("<CR>"));
    while (field.startsWith(u' '))
        field.remove(0, 1);
    while (field.endsWith(u' '))
        field.chop(1);
    return field;
}

inline GridTable AnyTable(QRandomGenerator &random, const QString &without)
{
    GridTable table;
    for (int columns = static_cast<int>(random.bounded(1, 9)); columns > 0; --columns) {
        // A header that is a number would be a width.
        table.Columns.append(
            {u'h' + AnyField(random, without), static_cast<double>(random.bounded(101))});
    }
    for (int rows = static_cast<int>(random.bounded(1, 20)); rows > 0; --rows) {
        QStringList cells;
        for (qsizetype column = 0; column < table.Columns.size(); ++column)
            cells.append(AnyField(random, without));
        table.Rows.append(cells);
    }
    return table;
}

/// The lines of the table's reply, without the end mark. Only names have a delimiter of their own.
inline QStringList ReplyOfTable(const GridTable &table, TableGrammar grammar, QChar delimiter)
{
    const auto closedBy = [](QChar mark, const QStringList &fields) -> QString {
        return fields.join(mark) + mark;
    };
    QStringList headers;
    QStringList widths;
    QStringList both;
    for (const GridColumn &column : table.Columns) {
        headers.append(column.Header);
        widths.append(QString::number(column.Percent));
        both += {headers.last(), widths.last()};
    }
    const QStringList columns =
        grammar == TableGrammar::ColDefInterleaved ? both : headers + widths;
    QStringList lines{QStringLiteral("TABNAME~x~"), QStringLiteral("TABDEF~x~"),
                      u"COLDEF~" + closedBy(u'~', columns),
                      u"COLALIGNMENT" + QString(table.Columns.size(), u'~')};
    if (grammar == TableGrammar::GridDef)
        lines = QStringList{u"GRIDDEF~" + closedBy(u'~', columns)};
    for (const QStringList &row : table.Rows)
        lines.append(closedBy(delimiter, row));
    return lines;
}
