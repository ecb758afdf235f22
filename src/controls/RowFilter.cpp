#include "controls/RowFilter.h"

#include "controls/TableLook.h"
#include "controls/Twips.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace {
// Each run of selected rows is looked at for every cell that is painted.
constexpr qsizetype mostRunsKept = 1000;
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

RowFilter::RowFilter(QTableView *table) : QObject(table), view(table), rows(table->verticalHeader())
{
    const QAbstractItemModel *model = view->model();
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) {
                if (IsActive())
                    apply(first, last);
                Q_EMIT Changed();
            });
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &from, const QModelIndex &to) {
                if (!IsActive())
                    return;
                apply(from.row(), to.row());
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
    if (!wasActive && !IsActive())
        return;
    apply(0, Loaded() - 1);
    deselectHidden();
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
}

bool RowFilter::matches(int row, const QList<int> &columns) const
{
    const QAbstractItemModel *model = view->model();
    QStringList cells;
    if (IsActive()) {
        for (const int column : columns)
            cells.append(model->index(row, column).data().toString());
    }
    return std::all_of(words.begin(), words.end(), [&cells](const QStringMatcher &word) {
        return std::any_of(cells.begin(), cells.end(),
                           [&word](const QString &cell) { return word.indexIn(cell) >= 0; });
    });
}

void RowFilter::deselectHidden()
{
    QItemSelectionModel *selection = view->selectionModel();
    const QAbstractItemModel *model = view->model();
    const int lastColumn = model->columnCount() - 1;
    const QItemSelection before = selection->selection();
    QItemSelection kept;
    bool someHidden = false;
    for (const QItemSelectionRange &range : before) {
        for (int row = range.top(); row <= range.bottom() && kept.size() <= mostRunsKept; ++row) {
            if (!Shows(row)) {
                someHidden = true;
                continue;
            }
            const int begin = row;
            while (row < range.bottom() && Shows(row + 1))
                ++row;
            kept.append(QItemSelectionRange(model->index(begin, 0), model->index(row, lastColumn)));
        }
    }
    if (someHidden) {
        if (kept.size() > mostRunsKept)
            kept.clear();
        selection->select(kept, QItemSelectionModel::ClearAndSelect);
    }
    if (view->currentIndex().isValid() && !Shows(view->currentIndex().row()))
        selection->clearCurrentIndex();
}
