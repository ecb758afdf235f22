#include "controls/ResultListView.h"

#include "controls/Twips.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {
constexpr int rowPaddingPixels = 6;
constexpr double smallFontScale = 0.9;
constexpr int leastSeenTwips = 100;

QFont smaller(QFont font)
{
    font.setPointSizeF(font.pointSizeF() * smallFontScale);
    return font;
}

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

ResultListView::ResultListView(QWidget *parent) : QTableView(parent), list(this)
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
    horizontalHeader()->setFont(smaller(font()));
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setMinimumSectionSize(PixelsFromTwips(30));
}

void ResultListView::SetColumns(const QList<ListColumn> &columns)
{
    list.SetColumns(columns);
    // A column too narrow to be seen is meant to stay so.
    horizontalHeader()->setStretchLastSection(columns.isEmpty()
                                              || columns.last().Width > leastSeenTwips);
    for (int i = 0; i < columns.size(); ++i)
        SetColumnTwips(i, columns[i].Width);
}

void ResultListView::SetColumnTwips(int column, int twips)
{
    setColumnWidth(column, PixelsFromTwips(twips));
}

void ResultListView::UseSmallText()
{
    setFont(smaller(font()));
}

void ResultListView::ShowHeaderIcon(int column, Qt::SortOrder order, bool show)
{
    QHeaderView *header = horizontalHeader();
    header->setSortIndicatorShown(show);
    if (show)
        header->setSortIndicator(column, order);
}

void ResultListView::keyPressEvent(QKeyEvent *event)
{
    if (!list.HasCheckBoxes() || event->key() != Qt::Key_Space
        || event->modifiers() != Qt::NoModifier) {
        QTableView::keyPressEvent(event);
        return;
    }
    turnCheckBoxes();
    event->accept();
}

void ResultListView::turnCheckBoxes()
{
    if (list.rowCount() == 0)
        return;
    // Before the first key or click the cursor stands nowhere, and the first row is meant.
    if (!currentIndex().isValid())
        setCurrentIndex(list.index(0, 0));
    const int current = currentIndex().row();
    const bool checked = !list.IsChecked(current);
    list.SetChecked(current, checked);
    const QModelIndexList selected = selectionModel()->selectedRows();
    if (!selectionModel()->isRowSelected(current))
        return;
    for (const QModelIndex &index : selected)
        list.SetChecked(index.row(), checked);
}
