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

void ResultListModel::AddRow(const QStringList &cells, const QString &key)
{
    rows.push_back({cells, key});
    if (!flushTimer.isActive())
        flushTimer.start();
}

QString ResultListModel::Cell(int row, int column) const
{
    return at(row).cells.value(column);
}

void ResultListModel::SetCell(int row, int column, const QString &text)
{
    QStringList &cells = rows.at(static_cast<size_t>(row)).cells;
    while (cells.size() <= column)
        cells.append(QString());
    cells[column] = text;
    if (row < shownRows)
        Q_EMIT dataChanged(index(row, column), index(row, column));
}

QString ResultListModel::Key(int row) const
{
    return at(row).key;
}

void ResultListModel::SetCheckBoxes(bool on)
{
    beginResetModel();
    checkBoxes = on;
    endResetModel();
}

bool ResultListModel::IsChecked(int row) const
{
    return at(row).checked;
}

void ResultListModel::SetChecked(int row, bool checked)
{
    rows.at(static_cast<size_t>(row)).checked = checked;
    if (row < shownRows)
        Q_EMIT dataChanged(index(row, 0), index(row, 0), {Qt::CheckStateRole});
}

QList<int> ResultListModel::CheckedRows() const
{
    QList<int> checked;
    for (int row = 0; row < Count(); ++row) {
        if (IsChecked(row))
            checked.append(row);
    }
    return checked;
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
    case Qt::CheckStateRole:
        if (!checkBoxes || index.column() != 0)
            return {};
        return IsChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool ResultListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || !checkBoxes || index.column() != 0 || role != Qt::CheckStateRole)
        return false;
    SetChecked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags ResultListModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    const bool hasBox = index.isValid() && checkBoxes && index.column() == 0;
    return hasBox ? usual | Qt::ItemIsUserCheckable : usual;
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
