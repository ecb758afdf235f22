#include "controls/ResultListModel.h"

namespace {
constexpr int flushMilliseconds = 40;
}

ResultListModel::ResultListModel(QObject *parent) : QAbstractTableModel(parent), flushTimer(this)
{
    flushTimer.setSingleShot(true);
    flushTimer.setInterval(flushMilliseconds);
    connect(&flushTimer, &QTimer::timeout, this, &ResultListModel::Flush);
}

void ResultListModel::SetColumns(const QList<ListColumn> &newColumns)
{
    beginResetModel();
    columns = newColumns;
    endResetModel();
}

void ResultListModel::AddRow(const QStringList &cells)
{
    rows.push_back(cells);
    if (!flushTimer.isActive())
        flushTimer.start();
}

QString ResultListModel::Cell(int row, int column) const
{
    return rows.at(static_cast<size_t>(row)).value(column);
}

void ResultListModel::SetCell(int row, int column, const QString &text)
{
    QStringList &cells = rows.at(static_cast<size_t>(row));
    while (cells.size() <= column)
        cells.append(QString());
    cells[column] = text;
    if (row < shownRows)
        Q_EMIT dataChanged(index(row, column), index(row, column));
}

void ResultListModel::Clear()
{
    flushTimer.stop();
    beginResetModel();
    rows.clear();
    shownRows = 0;
    endResetModel();
}

void ResultListModel::Flush()
{
    flushTimer.stop();
    if (shownRows < Count()) {
        beginInsertRows({}, shownRows, Count() - 1);
        shownRows = Count();
        endInsertRows();
    }
    Q_EMIT Flushed();
}

int ResultListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : shownRows;
}

int ResultListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

QVariant ResultListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return Cell(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(columns[index.column()].Alignment | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant ResultListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columns.size())
        return {};
    if (role == Qt::DisplayRole)
        return columns[section].Header;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(columns[section].Alignment | Qt::AlignVCenter);
    return {};
}
