#include "tables/ListRoom.h"

#include "controls/Twips.h"
#include "tables/ColumnRoom.h"
#include "tables/ColumnWidths.h"
#include "tables/ResultListView.h"
#include "tables/TableLook.h"

#include <QHeaderView>

#include <algorithm>
#include <vector>

namespace {
/// A list that a window is opened on may have all its rows already: so many are looked at together.
constexpr int rowsAtOnce = 10'000;
} // namespace

ListRoom::ListRoom(ResultListView *list, ColumnWidths *columnWidths)
    : QObject(list), view(list), widths(columnWidths), widest(list->font(), 0),
      widestBold(list->font(), 0), shareTimer(this), lookTimer(this)
{
    for (QTimer *timer : {&shareTimer, &lookTimer}) {
        timer->setSingleShot(true);
        timer->setInterval(0);
    }
    connect(&shareTimer, &QTimer::timeout, this, &ListRoom::Share);
    connect(&lookTimer, &QTimer::timeout, this, &ListRoom::lookAtRows);
    const ResultListModel *model = view->List();
    connect(model, &ResultListModel::Flushed, this, &ListRoom::lookAtRows);
    connect(model, &QAbstractItemModel::modelReset, this, &ListRoom::MeasureAgain);
    // Rows that were not looked at yet may stand among the others now.
    connect(model, &QAbstractItemModel::layoutChanged, this, &ListRoom::lookAgain);
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                cellsChanged(first.row(), last.row());
            });
    connect(widths, &ColumnWidths::UserChanged, this, [this](bool reset) {
        arranged = !reset;
        Share();
    });
    connect(widths, &ColumnWidths::Released, this, &ListRoom::Share);
}

void ListRoom::Begin(const QString &kind, const QList<ListColumn> &columns)
{
    usualTwips.clear();
    for (const ListColumn &column : columns)
        usualTwips.append(column.Width);
    arranged = false;
    widths->Begin(kind, usualTwips);
    MeasureAgain();
}

void ListRoom::SetUsual(int column, int twips)
{
    if (usualTwips.value(column) == twips)
        return;
    if (column < usualTwips.size())
        usualTwips[column] = twips;
    widths->SetUsual(column, twips);
    shareSoon();
}

void ListRoom::MeasureAgain()
{
    QFont bold = view->font();
    bold.setBold(true);
    widest = WidestTexts(view->font(), view->List()->Columns().size());
    widestBold = WidestTexts(bold, widest.Columns());
    needed = QList<int>(widest.Columns(), 0);
    looked = 0;
    lookAtRows();
}

void ListRoom::lookAgain()
{
    if (looked < view->List()->rowCount())
        lookFrom(0);
}

/// By slices, as if the rows from this one on had just come.
void ListRoom::lookFrom(int row)
{
    looked = std::min(looked, row);
    lookTimer.start();
}

void ListRoom::lookAtRows()
{
    const int last = std::min(view->List()->rowCount(), looked + rowsAtOnce);
    bool wider = false;
    while (looked < last)
        wider |= lookAtRow(looked++);
    if (looked < view->List()->rowCount())
        lookTimer.start();
    if (wider)
        Share();
}

/// True when a column needs more than before.
bool ListRoom::lookAtRow(int row)
{
    std::vector<QByteArrayView> cells(static_cast<size_t>(widest.Columns()));
    const RowTable *rows = view->List()->Rows();
    rows->ViewCells(row, cells);
    WidestTexts &texts = rows->IsNew(row) ? widestBold : widest;
    bool wider = false;
    for (int column = 0; column < widest.Columns(); ++column) {
        if (!texts.Note(column, cells[static_cast<size_t>(column)]))
            continue;
        // A text without end would be shaped for its exact width, which no column has room for.
        constexpr int wideEnough = 4000;
        int width = texts.Width(column);
        if (width < wideEnough)
            width =
                std::max(width, view->sizeHintForIndex(view->List()->index(row, column)).width());
        wider |= width > needed[column];
        needed[column] = std::max(needed[column], width);
    }
    return wider;
}

void ListRoom::cellsChanged(int firstRow, int lastRow)
{
    if (lastRow - firstRow >= rowsAtOnce) {
        lookFrom(firstRow);
        return;
    }
    bool wider = false;
    for (int row = firstRow; row <= std::min(lastRow, looked - 1); ++row)
        wider |= lookAtRow(row);
    if (wider)
        shareSoon();
}

void ListRoom::shareSoon()
{
    if (!shareTimer.isActive())
        shareTimer.start();
}

int ListRoom::Needed(int column) const
{
    return needed.value(column);
}

bool ListRoom::isSeen(int column) const
{
    return usualTwips[column] > unseenColumnTwips && !view->isColumnHidden(column);
}

void ListRoom::Share()
{
    if (arranged || widths->InHand() || !view->isVisible() || usualTwips.size() != needed.size())
        return;
    const int last = LastColumnInSight(view);
    QList<ColumnNeed> columns;
    int room = view->viewport()->width();
    for (int column = 0; column < usualTwips.size(); ++column) {
        // The last one stretches: what it has now says nothing.
        const bool users = column != last && widths->IsUsers(column);
        const int width = users ? view->columnWidth(column) : PixelsFromTwips(usualTwips[column]);
        columns.append({width, users || !isSeen(column) ? 0 : needed[column]});
        room -= width;
    }
    const QList<int> given = WithRoom(columns, room);
    // None of them passes the edge of the list on its way, which would show a scroll bar.
    for (const bool narrower : {true, false}) {
        for (int column = 0; column < given.size(); ++column) {
            if (column != last && (given[column] < view->columnWidth(column)) == narrower)
                widths->SetUsual(column, TwipsFromPixels(given[column]));
        }
    }
}
