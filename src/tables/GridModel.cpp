#include "tables/GridModel.h"

GridModel::GridModel(QObject *parent) : QAbstractTableModel(parent) {}

void GridModel::SetTable(const GridTable &newTable)
{
    beginResetModel();
    table = newTable;
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
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= table.Columns.size())
        return {};
    if (role == Qt::DisplayRole)
        return HasHeader() ? table.Columns[section].Header : QString();
    if (role == Qt::TextAlignmentRole) {
        const Qt::Alignment sideways = Alignment(section) & Qt::AlignHorizontal_Mask;
        return QVariant::fromValue(sideways | Qt::AlignVCenter);
    }
    return {};
}
