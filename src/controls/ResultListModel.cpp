#include "controls/ResultListModel.h"

#include <algorithm>
#include <numeric>

namespace {
constexpr int flushMilliseconds = 40;

/// Stands behind each cell of a row. No text has this byte in UTF-8.
constexpr char cellEnd = '\xFF';

/// The cells as one block of UTF-8: a list of texts takes four times the memory, and there may be a
/// hundred thousand rows, of which the view shows thirty.
QByteArray packed(const QStringList &cells)
{
    qsizetype size = 0;
    for (const QString &cell : cells)
        size += cell.size() + 1;
    QByteArray block;
    block.reserve(size);
    for (const QString &cell : cells) {
        block.append(cell.toUtf8());
        block.append(cellEnd);
    }
    block.squeeze();
    return block;
}

/// The text of a cell of this block, empty when the row has no such cell.
QString cellIn(QByteArrayView block, int column)
{
    qsizetype from = 0;
    for (int before = 0; before < column; ++before) {
        const qsizetype end = block.indexOf(cellEnd, from);
        if (end < 0)
            return {};
        from = end + 1;
    }
    const qsizetype end = block.indexOf(cellEnd, from);
    return end < 0 || column < 0 ? QString() : QString::fromUtf8(block.sliced(from, end - from));
}

/// The rows' numbers in the order of their keys. Numbers are moved instead of rows, and each key is
/// the one that was made for its row.
std::vector<int> orderOf(const std::vector<QString> &keys, Qt::SortOrder order)
{
    std::vector<int> rows(keys.size());
    std::iota(rows.begin(), rows.end(), 0);
    const auto keyOf = [&keys](int row) -> const QString & {
        return keys[static_cast<size_t>(row)];
    };
    if (order == Qt::AscendingOrder)
        std::stable_sort(rows.begin(), rows.end(),
                         [&](int left, int right) { return keyOf(left) < keyOf(right); });
    else
        std::stable_sort(rows.begin(), rows.end(),
                         [&](int left, int right) { return keyOf(right) < keyOf(left); });
    return rows;
}

/// Puts the entries into this order.
template<typename Entry>
void rearrange(std::vector<Entry> &entries, const std::vector<int> &order)
{
    std::vector<Entry> moved;
    moved.reserve(entries.size());
    for (const int from : order)
        moved.push_back(std::move(entries[static_cast<size_t>(from)]));
    entries = std::move(moved);
}
} // namespace

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
    rows.push_back({packed(cells), key});
    if (!flushTimer.isActive())
        flushTimer.start();
}

QString ResultListModel::Cell(int row, int column) const
{
    return cellIn(at(row).cells, column);
}

void ResultListModel::SetCell(int row, int column, const QString &text)
{
    QStringList cells = Cells(row);
    while (cells.size() <= column)
        cells.append(QString());
    cells[column] = text;
    rows.at(static_cast<size_t>(row)).cells = packed(cells);
    if (row < shownRows)
        Q_EMIT dataChanged(index(row, column), index(row, column));
}

QStringList ResultListModel::Cells(int row) const
{
    const QByteArrayView block = at(row).cells;
    QStringList cells;
    qsizetype from = 0;
    for (qsizetype end = block.indexOf(cellEnd); end >= 0; end = block.indexOf(cellEnd, from)) {
        cells.append(QString::fromUtf8(block.sliced(from, end - from)));
        from = end + 1;
    }
    return cells;
}

void ResultListModel::SortRows(const std::vector<QString> &keys, Qt::SortOrder order)
{
    Q_ASSERT(keys.size() == rows.size());
    // The view knows every row that moves.
    Flush();
    const std::vector<int> rowsInOrder = orderOf(keys, order);
    std::vector<int> newPlaces(rowsInOrder.size());
    for (size_t place = 0; place < rowsInOrder.size(); ++place)
        newPlaces[static_cast<size_t>(rowsInOrder[place])] = static_cast<int>(place);
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    rearrange(rows, rowsInOrder);
    movePersistentIndexes(newPlaces);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void ResultListModel::movePersistentIndexes(const std::vector<int> &newPlaces)
{
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex &old : from)
        to.append(index(newPlaces[static_cast<size_t>(old.row())], old.column()));
    changePersistentIndexList(from, to);
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
