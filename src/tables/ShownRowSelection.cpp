#include "tables/ShownRowSelection.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <utility>
#include <vector>

namespace {
// Between two selections of many ranges Qt finds the difference by comparing each range with each.
// Where that would take longer than the change is worth, the old ranges are cleared first.
constexpr qsizetype mostComparisons = 1'000'000;

/// The first and last rows of the selection's ranges, from top to bottom, none of them twice.
std::vector<std::pair<int, int>> rowsOf(const QItemSelection &selection)
{
    std::vector<std::pair<int, int>> ranges;
    for (const QItemSelectionRange &range : selection) {
        if (range.isValid())
            ranges.emplace_back(range.top(), range.bottom());
    }
    std::sort(ranges.begin(), ranges.end());
    std::vector<std::pair<int, int>> apart;
    for (const auto &range : ranges) {
        if (!apart.empty() && range.first <= apart.back().second + 1)
            apart.back().second = std::max(apart.back().second, range.second);
        else
            apart.push_back(range);
    }
    return apart;
}
} // namespace

ShownRowSelection::ShownRowSelection(QTableView *table)
    : QItemSelectionModel(table->model(), table), rows(table->verticalHeader())
{
    const QItemSelectionModel *before = table->selectionModel();
    table->setSelectionModel(this);
    delete before;
}

bool ShownRowSelection::isHidden(int row) const
{
    return rows && rows->isSectionHidden(row);
}

/// The rows in sight of these, whole, in as few ranges as there can be.
QItemSelection ShownRowSelection::shownPartOf(const QItemSelection &selection) const
{
    QItemSelection shown;
    const int lastColumn = model()->columnCount() - 1;
    for (const auto &[top, bottom] : rowsOf(selection)) {
        for (int row = top; row <= bottom; ++row) {
            if (isHidden(row))
                continue;
            const int first = row;
            while (row < bottom && !isHidden(row + 1))
                ++row;
            shown.append(
                QItemSelectionRange(model()->index(first, 0), model()->index(row, lastColumn)));
        }
    }
    return shown;
}

void ShownRowSelection::select(const QItemSelection &selection, SelectionFlags command)
{
    const bool isMany = std::any_of(selection.begin(), selection.end(),
                                    [](const auto &range) { return range.height() > 1; });
    if (isMany || selection.size() > 1)
        Q_EMIT SelectingMany();
    if (!command.testFlag(Current))
        anchor = QPersistentModelIndex();
    const bool fromAnchor = anchor.isValid() && !isHidden(anchor.row()) && currentIndex().isValid();
    selectShown(fromAnchor ? QItemSelection(anchor, currentIndex()) : selection, command);
}

void ShownRowSelection::selectShown(const QItemSelection &selection, SelectionFlags command)
{
    const bool allInSight = !rows || rows->hiddenSectionCount() == 0;
    const QItemSelection shown = allInSight ? selection : shownPartOf(selection);
    // One range across all of the old ones is divided by each.
    const qsizetype before = this->selection().size();
    const qsizetype parts = allInSight && !shown.isEmpty() ? before : shown.size();
    if (command.testFlag(Clear) && before * parts > mostComparisons)
        clearSelection();
    if (allInSight) {
        QItemSelectionModel::select(shown, command);
        return;
    }
    // The rows are whole already. To make them so range by range, each is compared with each: half
    // a minute for fifty thousand.
    QItemSelectionModel::select(shown, command & ~SelectionFlags(Rows));
}

void ShownRowSelection::setCurrentIndex(const QModelIndex &index, SelectionFlags command)
{
    if (!index.isValid() || !isHidden(index.row()))
        QItemSelectionModel::setCurrentIndex(index, command);
}

void ShownRowSelection::LeaveHiddenRows()
{
    const QItemSelection before = selection();
    const QItemSelection kept = shownPartOf(before);
    const bool losesCurrent = currentIndex().isValid() && isHidden(currentIndex().row());
    const bool losesRows = rowsOf(kept) != rowsOf(before);
    if (losesRows)
        selectShown(kept, ClearAndSelect);
    if (losesCurrent)
        clearCurrentIndex();
    if (losesRows || losesCurrent)
        anchor = currentIndex();
}
