#include "tables/RowFilter.h"

#include "controls/Twips.h"
#include "tables/NewRowData.h"
#include "tables/ShownRowSelection.h"
#include "tables/TableLook.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace {
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
            [this](const QModelIndex &, int first, int last) {
                if (IsActive())
                    apply(first, last);
                Q_EMIT Changed();
            });
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &from, const QModelIndex &to, const QList<int> &roles) {
                if (!IsActive() || leavesTexts(roles))
                    return;
                apply(from.row(), to.row());
                Q_EMIT Changed();
            });
    connect(model, &QAbstractItemModel::headerDataChanged, this,
            [this](Qt::Orientation orientation, int first, int last) {
                if (!onlyNew || orientation != Qt::Vertical)
                    return;
                apply(first, last);
                Q_EMIT Changed();
            });
    connect(model, &QAbstractItemModel::rowsRemoved, this, [this] {
        if (rows)
            Q_EMIT Changed();
    });
    connect(model, &QAbstractItemModel::modelReset, this, &RowFilter::applyToAll);
    connect(model, &QAbstractItemModel::layoutChanged, this, &RowFilter::applyToAll);
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
    apply(0, Loaded() - 1);
    if (view->currentIndex().isValid())
        view->scrollTo(view->currentIndex());
    Q_EMIT Changed();
}

int RowFilter::Loaded() const
{
    return view->model()->rowCount();
}

int RowFilter::Shown() const
{
    return Loaded() - rows->hiddenSectionCount();
}

bool RowFilter::Shows(int row) const
{
    return !view->isRowHidden(row);
}

void RowFilter::applyToAll()
{
    if (!rows)
        return;
    if (IsActive())
        apply(0, Loaded() - 1);
    Q_EMIT Changed();
}

void RowFilter::apply(int first, int last)
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
    selection->LeaveHiddenRows();
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

QList<int> RowFilter::ShownRows() const
{
    QList<int> shown;
    for (int row = 0; row < Loaded(); ++row) {
        if (Shows(row))
            shown.append(row);
    }
    return shown;
}

QList<int> RowFilter::SelectedRows() const
{
    QList<int> selected;
    const QItemSelection ranges = selection->selection();
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (Shows(row))
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
    const QList<int> selected = SelectedRows();
    return selected.isEmpty() ? -1 : selected.first();
}

int RowFilter::CurrentRow() const
{
    const QModelIndex current = selection->currentIndex();
    return current.isValid() && Shows(current.row()) ? current.row() : -1;
}
