#include "tables/ResultListModel.h"

#include "tables/NewRowData.h"

#include <algorithm>
#include <numeric>

namespace {
constexpr int flushMilliseconds = 40;

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
} // namespace

ResultListModel::ResultListModel(QObject *parent)
    : QAbstractTableModel(parent), ownRows(this), flushTimer(this)
{
    flushTimer.setSingleShot(true);
    flushTimer.setInterval(flushMilliseconds);
    connect(&flushTimer, &QTimer::timeout, this, &ResultListModel::Flush);
    UseRows(&ownRows);
}

void ResultListModel::UseRows(RowTable *table)
{
    beginResetModel();
    if (rows)
        rows->disconnect(this);
    rows = table;
    shownRows = 0;
    endResetModel();
    connect(rows, &RowTable::RowAdded, this, &ResultListModel::flushSoon);
    connect(rows, &RowTable::CellChanged, this, [this](int row, int column) {
        if (row < shownRows)
            Q_EMIT dataChanged(index(row, column), index(row, column));
    });
    connect(rows, &RowTable::CheckChanged, this, [this](int row) {
        if (row < shownRows)
            Q_EMIT dataChanged(index(row, 0), index(row, 0), {Qt::CheckStateRole});
    });
    connect(rows, &RowTable::MarksChanged, this, &ResultListModel::showMarks);
    connect(rows, &RowTable::Cleared, this, &ResultListModel::forgetRows);
    // Whoever fills them may be gone first; the list shows none then.
    connect(rows, &QObject::destroyed, this, [this, table] {
        if (table != &ownRows)
            UseRows(&ownRows);
    });
    if (Count() > 0)
        flushSoon();
    Q_EMIT MarksChanged();
}

void ResultListModel::showMarks()
{
    if (shownRows > 0 && !columns.isEmpty()) {
        Q_EMIT headerDataChanged(Qt::Vertical, 0, shownRows - 1);
        Q_EMIT dataChanged(index(0, 0), index(shownRows - 1, columnCount() - 1), NewCellRoles());
    }
    Q_EMIT MarksChanged();
}

void ResultListModel::flushSoon()
{
    if (!flushTimer.isActive())
        flushTimer.start();
}

void ResultListModel::forgetRows()
{
    flushTimer.stop();
    beginResetModel();
    shownRows = 0;
    endResetModel();
    Q_EMIT MarksChanged();
}

void ResultListModel::SetColumns(const QList<ListColumn> &newColumns)
{
    beginResetModel();
    columns = newColumns;
    endResetModel();
}

void ResultListModel::SortRows(const std::vector<QString> &keys, Qt::SortOrder order)
{
    Q_ASSERT(keys.size() == static_cast<size_t>(Count()));
    // The view knows every row that moves.
    Flush();
    const std::vector<int> rowsInOrder = orderOf(keys, order);
    std::vector<int> newPlaces(rowsInOrder.size());
    for (size_t place = 0; place < rowsInOrder.size(); ++place)
        newPlaces[static_cast<size_t>(rowsInOrder[place])] = static_cast<int>(place);
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    rows->Rearrange(rowsInOrder);
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

void ResultListModel::SetCheckBoxes(bool on)
{
    beginResetModel();
    checkBoxes = on;
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
        break;
    }
    if (!rows->IsNew(index.row()))
        return {};
    return NewCellData(role, index.column() == 0 ? Cell(index.row(), 0) : QString());
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
    if (orientation == Qt::Vertical) {
        const bool isNew = section >= 0 && section < shownRows && rows->IsNew(section);
        return isNew ? NewHeaderData(role, rows->NewSince()) : QVariant();
    }
    if (section < 0 || section >= columns.size())
        return {};
    if (role == Qt::DisplayRole)
        return columns[section].Header;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(columns[section].Alignment | Qt::AlignVCenter);
    return {};
}
