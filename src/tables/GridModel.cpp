#include "tables/GridModel.h"

#include "tables/NewRowData.h"

#include <algorithm>

GridModel::GridModel(QObject *parent) : QAbstractTableModel(parent) {}

void GridModel::SetTable(const GridTable &newTable)
{
    beginResetModel();
    table = newTable;
    marks = {};
    endResetModel();
}

void GridModel::Grow(const GridTable &grown)
{
    if (grown.Rows.size() <= table.Rows.size())
        return;
    beginInsertRows({}, rowCount(), static_cast<int>(grown.Rows.size()) - 1);
    table = grown;
    endInsertRows();
}

void GridModel::SetMarks(const RowMarks &newMarks)
{
    if (marks == newMarks || rowCount() == 0 || columnCount() == 0)
        return;
    marks = newMarks;
    Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), NewCellRoles());
}

/// The first column that the user sees.
int GridModel::firstShown() const
{
    const auto first = std::find_if(table.Columns.begin(), table.Columns.end(),
                                    [](const GridColumn &column) { return column.Percent != 0; });
    return first == table.Columns.end() ? 0 : static_cast<int>(first - table.Columns.begin());
}

QString GridModel::Cell(int row, int column) const
{
    if (row < 0 || row >= table.Rows.size() || column < 0 || column >= table.Columns.size())
        return {};
    return table.Rows[row].value(column);
}

void GridModel::SetAlignment(int column, Qt::Alignment alignment)
{
    alignments[column] = alignment;
    if (column >= 0 && column < columnCount() && rowCount() > 0)
        Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column),
                           {Qt::TextAlignmentRole});
}

Qt::Alignment GridModel::Alignment(int column) const
{
    constexpr Qt::Alignment leftTop = Qt::AlignLeft | Qt::AlignTop;
    return table.IsMessage() ? leftTop : alignments.value(column, leftTop);
}

int GridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(table.Rows.size());
}

int GridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(table.Columns.size());
}

QVariant GridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return Cell(index.row(), index.column());
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Alignment(index.column()));
    if (!marks.Rows.contains(index.row()))
        return {};
    const bool first = index.column() == firstShown();
    return NewCellData(role, first ? Cell(index.row(), index.column()) : QString());
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return marks.Rows.contains(section) ? NewHeaderData(role, marks.Since) : QVariant();
    if (section < 0 || section >= table.Columns.size())
        return {};
    if (role == Qt::DisplayRole)
        return HasHeader() ? table.Columns[section].Header : QString();
    if (role == Qt::TextAlignmentRole) {
        const Qt::Alignment sideways = Alignment(section) & Qt::AlignHorizontal_Mask;
        return QVariant::fromValue(sideways | Qt::AlignVCenter);
    }
    return {};
}
