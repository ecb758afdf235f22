#include "controls/ResultListView.h"

#include "controls/ColumnWidths.h"
#include "controls/TableTools.h"
#include "controls/Twips.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QStyledItemDelegate>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {
constexpr int rowPaddingPixels = 6;
constexpr double headerFontScale = 0.9;
constexpr int leastSeenTwips = 100;

/// Shows a cell's whole text when the cell is too narrow for it: as plain text, whatever the server
/// put there.
class PlainCellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override
    {
        const bool cut = sizeHint(option, index).width() > view->visualRect(index).width();
        const QString text = index.data().toString().toHtmlEscaped();
        QToolTip::showText(event->globalPos(), cut ? QString(u"<qt>"_s + text) : QString(), view);
        return true;
    }
};
} // namespace

ResultListView::ResultListView(QWidget *parent) : QTableView(parent), list(this), tools(nullptr)
{
    setModel(&list);
    setItemDelegate(new PlainCellDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPaddingPixels);
    horizontalHeader()->setHighlightSections(false);
    // A little smaller, so that a title and the sort arrow share a column of the told width.
    QFont headerFont = font();
    headerFont.setPointSizeF(headerFont.pointSizeF() * headerFontScale);
    horizontalHeader()->setFont(headerFont);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setMinimumSectionSize(PixelsFromTwips(30));
    tools = new TableTools(this);
}

void ResultListView::SetColumns(const QList<ListColumn> &columns)
{
    SetColumns(ListLayout{QString(), columns});
}

void ResultListView::SetColumns(const ListLayout &layout)
{
    const QList<ListColumn> &columns = layout.Columns;
    list.SetColumns(columns);
    // A column too narrow to be seen is meant to stay so.
    horizontalHeader()->setStretchLastSection(columns.isEmpty()
                                              || columns.last().Width > leastSeenTwips);
    QList<int> told;
    for (const ListColumn &column : columns)
        told.append(column.Width);
    tools->Widths()->Begin(layout.Kind, told);
}

void ResultListView::SetColumnTwips(int column, int twips)
{
    tools->Widths()->SetTold(column, twips);
}

void ResultListView::ShowHeaderIcon(int column, Qt::SortOrder order, bool show)
{
    QHeaderView *header = horizontalHeader();
    header->setSortIndicatorShown(show);
    if (show)
        header->setSortIndicator(column, order);
}
