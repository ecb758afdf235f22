#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A column of a grid.
struct GridColumn
{
    QString Header;
    double Percent = 1; ///< its width, in hundredths of the grid's

    bool operator==(const GridColumn &) const = default;
};

/// What a grid shows. A row may have fewer cells than there are columns: the others are empty.
struct GridTable
{
    QList<GridColumn> Columns;
    QList<QStringList> Rows; ///< without the headers
    /// The headers are the grid's row 0. Without them row 0 is the first of Rows.
    bool HasHeader = true;
    /// A number for each of Rows that tells what the row came from, where its owner keeps one.
    QList<qsizetype> RowData = {};

    /// Words in the place of a table: one column, which has no name.
    bool IsMessage() const { return Columns.size() == 1 && Columns.first().Header.isEmpty(); }

    bool operator==(const GridTable &) const = default;
};
