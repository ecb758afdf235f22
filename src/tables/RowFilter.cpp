#include "tables/RowFilter.h"

#include "controls/Twips.h"
#include "tables/NewRowData.h"
#include "tables/ShownRowSelection.h"
#include "tables/TableLook.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace {
/// So many rows are looked at before the user has a turn: it takes some twenty milliseconds.
constexpr int rowsAtOnce = 20'000;

/// A change that concerns no cell's text, such as that of a check box.
bool leavesTexts(const QList<int> &roles)
{
    return !roles.isEmpty() && !roles.contains(Qt::DisplayRole) && !roles.contains(Qt::EditRole);
}
} // namespace

QList<int> ShownColumns(const QTableView *table)
{
    QList<int> shown;
    const QHeaderView *header = table->horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (!table->isColumnHidden(column)
            && table->columnWidth(column) > PixelsFromTwips(unseenColumnTwips))
            shown.append(column);
    }
    return shown;
}

RowFilter::RowFilter(QTableView *table)
    : QObject(table), view(table), selection(new ShownRowSelection(table)),
      rows(table->verticalHeader())
{
    const QAbstractItemModel *model = view->model();
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int) {
                if (IsActive() || IsLooking())
                    lookFrom(first);
                else
                    Q_EMIT Changed();
            });
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &from, const QModelIndex &to, const QList<int> &roles) {
                if (!IsActive() || leavesTexts(roles))
                    return;
                lookAgain(from.row(), to.row());
            });
    connect(model, &QAbstractItemModel::headerDataChanged, this,
            [this](Qt::Orientation orientation, int first, int last) {
                if (!onlyNew || orientation != Qt::Vertical)
                    return;
                lookAgain(first, last);
            });
    connect(model, &QAbstractItemModel::rowsRemoved, this, [this] {
        if (rows)
            Q_EMIT Changed();
    });
    connect(model, &QAbstractItemModel::modelReset, this, &RowFilter::lookAtAll);
    connect(model, &QAbstractItemModel::layoutChanged, this, &RowFilter::lookAtAll);
    pause.setSingleShot(true);
    connect(&pause, &QTimer::timeout, this, &RowFilter::goOn);
    connect(selection, &ShownRowSelection::SelectingMany, this, &RowFilter::Settle);
}

void RowFilter::SetText(const QString &text)
{
    const bool wasActive = IsActive();
    words.clear();
    const QStringList parts = text.simplified().split(u' ', Qt::SkipEmptyParts);
    for (const QString &part : parts)
        words.append(QStringMatcher(part, Qt::CaseInsensitive));
    applyChange(wasActive);
}

void RowFilter::ShowOnlyNew(bool only)
{
    const bool wasActive = IsActive();
    onlyNew = only;
    applyChange(wasActive);
}

void RowFilter::applyChange(bool wasActive)
{
    if (!wasActive && !IsActive())
        return;
    goesToCurrent = true;
    lookFrom(0);
}

int RowFilter::Loaded() const
{
    return view->model()->rowCount();
}

int RowFilter::Shown() const
{
    return Loaded() - rows->hiddenSectionCount();
}

bool RowFilter::isInSight(int row) const
{
    return !view->isRowHidden(row);
}

bool RowFilter::Shows(int row)
{
    Settle();
    return isInSight(row);
}

void RowFilter::lookAtAll()
{
    if (!rows)
        return;
    if (IsActive() || IsLooking())
        lookFrom(0);
    else
        Q_EMIT Changed();
}

/// Looks at the rows from this one on. What an older look has not come to is looked at as well.
void RowFilter::lookFrom(int row)
{
    // What that one has hidden is given up, even if it comes into sight again now.
    if (IsLooking())
        selection->LeaveHiddenRows();
    nextRow = IsLooking() ? std::min(nextRow, row) : row;
    goOn();
}

void RowFilter::lookAgain(int first, int last)
{
    if (last - first >= rowsAtOnce) {
        lookFrom(first);
        return;
    }
    hideOthers(first, last);
    selection->LeaveHiddenRows();
    Q_EMIT Changed();
}

void RowFilter::goOn()
{
    lookOn(rowsAtOnce);
}

void RowFilter::Settle()
{
    if (IsLooking())
        lookOn(Loaded());
}

/// Looks at so many rows more, or at those that are left.
void RowFilter::lookOn(int count)
{
    if (!rows)
        return;
    const int behind = std::min(nextRow + count, Loaded());
    hideOthers(nextRow, behind - 1);
    nextRow = behind;
    if (nextRow < Loaded())
        pause.start(0);
    else
        end();
    Q_EMIT Changed();
}

void RowFilter::end()
{
    nextRow = noRow;
    pause.stop();
    selection->LeaveHiddenRows();
    if (std::exchange(goesToCurrent, false) && view->currentIndex().isValid()) {
        // The scroll bar is as long as the rows that were shown before, until then.
        view->doItemsLayout();
        view->scrollTo(view->currentIndex());
    }
}

void RowFilter::hideOthers(int first, int last)
{
    const QList<int> columns = ShownColumns(view);
    // A header that paints works out the place of every row after each single hiding: minutes for a
    // hundred thousand rows instead of milliseconds.
    const bool paints = rows->updatesEnabled();
    rows->setUpdatesEnabled(false);
    for (int row = first; row <= last; ++row)
        rows->setSectionHidden(row, !matches(row, columns));
    rows->setUpdatesEnabled(paints);
    view->viewport()->update();
}

bool RowFilter::matches(int row, const QList<int> &columns) const
{
    const QAbstractItemModel *model = view->model();
    if (onlyNew && !model->headerData(row, Qt::Vertical, newRowRole).toBool())
        return false;
    QStringList cells;
    if (!words.isEmpty()) {
        for (const int column : columns)
            cells.append(model->index(row, column).data().toString());
    }
    return std::all_of(words.begin(), words.end(), [&cells](const QStringMatcher &word) {
        return std::any_of(cells.begin(), cells.end(),
                           [&word](const QString &cell) { return word.indexIn(cell) >= 0; });
    });
}

QList<int> RowFilter::ShownRows()
{
    Settle();
    QList<int> shown;
    for (int row = 0; row < Loaded(); ++row) {
        if (isInSight(row))
            shown.append(row);
    }
    return shown;
}

int RowFilter::firstInSight(int first, int last) const
{
    while (first <= last && !isInSight(first))
        ++first;
    return first <= last ? first : noRow;
}

int RowFilter::FirstShown()
{
    const int looked = IsLooking() ? nextRow : Loaded();
    const int found = firstInSight(0, looked - 1);
    if (found != noRow || !IsLooking())
        return found;
    Settle();
    return firstInSight(looked, Loaded() - 1);
}

QList<int> RowFilter::SelectedRows()
{
    Settle();
    QList<int> selected;
    const QItemSelection ranges = selection->selection();
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (isInSight(row))
                selected.append(row);
        }
    }
    std::sort(selected.begin(), selected.end());
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    return selected;
}

int RowFilter::ChosenRow() const
{
    const int current = CurrentRow();
    if (current >= 0 && selection->isRowSelected(current))
        return current;
    int uppermost = noRow;
    const QItemSelection ranges = selection->selection();
    for (const QItemSelectionRange &range : ranges) {
        const int row = firstInSight(range.top(), range.bottom());
        if (uppermost == noRow || (row != noRow && row < uppermost))
            uppermost = row;
    }
    return uppermost;
}

int RowFilter::CurrentRow() const
{
    const QModelIndex current = selection->currentIndex();
    return current.isValid() && isInSight(current.row()) ? current.row() : noRow;
}
