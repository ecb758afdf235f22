#pragma once

#include "records/GridTable.h"
#include "records/RowMarks.h"

#include <QAbstractTableModel>
#include <QMap>

/// The rows of a grid. Another table takes its place whole; one that is still being read grows at
/// its end.
class GridModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit GridModel(QObject *parent = nullptr);

    void SetTable(const GridTable &newTable);
    /// Adds the rows that this table has more than the one that is shown, of which it is the
    /// continuation.
    void Grow(const GridTable &grown);
    const GridTable &Table() const { return table; }

    /// Whether there are headers above the rows. A table without columns has none.
    bool HasHeader() const { return table.HasHeader && !table.Columns.isEmpty(); }

    /// The text of a cell, row 0 being the first row below the headers. Empty outside.
    QString Cell(int row, int column) const;

    /// Marks rows as new; none without one. Another table has no marks.
    void SetMarks(const RowMarks &newMarks);
    const RowMarks &Marks() const { return marks; }

    /// The alignment stays with the place of the column, whatever table comes. A message in the
    /// place of a table stands left meanwhile.
    void SetAlignment(int column, Qt::Alignment alignment);
    Qt::Alignment Alignment(int column) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    int firstShown() const;

    GridTable table;
    RowMarks marks;
    QMap<int, Qt::Alignment> alignments;
};
