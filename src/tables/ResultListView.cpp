#include "tables/ResultListView.h"

#include "controls/Twips.h"
#include "controls/WrappedText.h"
#include "tables/ColumnWidths.h"
#include "tables/ListRoom.h"
#include "tables/MarkColumn.h"
#include "tables/NewRowData.h"
#include "tables/RowFilter.h"
#include "tables/TableLook.h"
#include "tables/TableMarks.h"
#include "tables/TableTools.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr int rowPaddingPixels = 6;
constexpr qsizetype longestInSight = 4'000; ///< characters of a line
/// For the titles of columns: the first with which each has room.
constexpr std::array<double, 3> titleScales{smallFontScale, 0.85, 0.8};

bool isSeen(const ListColumn &column)
{
    return column.Width > unseenColumnTwips;
}

/// Shows a cell's whole text when the cell is too narrow for it: as plain text, whatever the server
/// put there.
class PlainCellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// What no column has room for is neither shaped nor measured: a text of megabytes would take
    /// seconds at each painting.
    QString displayText(const QVariant &value, const QLocale &locale) const override
    {
        return QStyledItemDelegate::displayText(value, locale).left(longestInSight);
    }

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override
    {
        const auto *list = qobject_cast<const ResultListView *>(view);
        const bool cut = sizeHint(option, index).width() > view->visualRect(index).width();
        QStringList lines;
        if (cut)
            lines.append(ToolTipText(index.data().toString()));
        if (const QString note = index.isValid() ? list->NoteOf(index.row()) : QString();
            !note.isEmpty())
            lines.append(ToolTipText(note));
        QToolTip::showText(event->globalPos(), lines.join(u"<br>"_s), view);
        return true;
    }
};
} // namespace

ResultListView::ResultListView(QWidget *parent) : QTableView(parent), list(this), largeFont(font())
{
    setModel(&list);
    setItemDelegate(new PlainCellDelegate(this));
    setVerticalHeader(new MarkColumn(this));
    SetTableLook(this);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    followFont();
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setMinimumSectionSize(PixelsFromTwips(30));
    tools = new TableTools(this);
    room = new ListRoom(this, tools->Widths());
    connectHeader();
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ResultListView::SelectedRowChanged);
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &ResultListView::SelectedRowChanged);
    // A list that is made anew drops its selection without a signal.
    connect(&list, &QAbstractItemModel::modelReset, this, &ResultListView::SelectedRowChanged);
    connect(&list, &ResultListModel::MarksChanged, this, &ResultListView::showMarks);
}

/// "3 cases are new since your last such search on 11/02/2026"
void ResultListView::showMarks()
{
    const int count = list.Rows()->NewCount();
    QString line;
    if (count > 0)
        line = QString::number(count) + (count == 1 ? u" row is"_s : u" rows are"_s)
               + u" new since your last such search on "_s + DayInWords(list.Rows()->NewSince());
    tools->Marks()->Show(line);
}

void ResultListView::connectHeader()
{
    QHeaderView *header = horizontalHeader();
    header->setSectionsClickable(true);
    connect(header, &QHeaderView::sectionClicked, this, [this](int column) {
        // The header has turned its arrow on its own; others decide where it stands.
        showArrow();
        Q_EMIT HeaderClicked(column);
    });
    connect(verticalHeader(), &QHeaderView::sectionDoubleClicked, this, [this](int row) {
        if (SelectedRow() == row)
            Q_EMIT RowChosen(row);
    });
}

void ResultListView::SetColumns(const QList<ListColumn> &columns)
{
    SetColumns(ListLayout{QString(), columns});
}

void ResultListView::SetColumns(const ListLayout &layout)
{
    const QList<ListColumn> &columns = layout.Columns;
    list.SetColumns(columns);
    orderColumns();
    fitTitles(columns);
    room->Begin(layout.Kind, columns);
}

/// The last column takes the room that is left. One too narrow to be seen is meant to stay so: it
/// stands before the last that can be. The header keeps the order of the columns before these.
void ResultListView::orderColumns()
{
    QHeaderView *header = horizontalHeader();
    const QList<ListColumn> &columns = list.Columns();
    const auto last = static_cast<int>(columns.size()) - 1;
    for (int column = 0; column <= last; ++column)
        header->moveSection(header->visualIndex(column), column);
    if (last > 0 && !isSeen(columns[last]))
        header->moveSection(last, last - 1);
}

/// Titles are the same for everybody: none of them is cut in its own width.
void ResultListView::fitTitles(const QList<ListColumn> &columns)
{
    const int margins =
        2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, horizontalHeader());
    for (const double scale : titleScales) {
        const QFont titles = SmallerFont(largeFont, scale);
        horizontalHeader()->setFont(titles);
        const QFontMetrics metrics(titles);
        const bool fit = std::all_of(columns.begin(), columns.end(), [&](const ListColumn &column) {
            return !isSeen(column)
                   || metrics.horizontalAdvance(column.Header) + margins
                          <= PixelsFromTwips(column.Width);
        });
        if (fit)
            return;
    }
}

void ResultListView::WidenForCell(int row, int column)
{
    // No wider than the list: a cell without end would push all other columns out of reach.
    const int needed =
        std::min(sizeHintForIndex(list.index(row, column)).width(), viewport()->width());
    if (needed > columnWidth(column))
        SetColumnTwips(column, TwipsFromPixels(needed));
}

void ResultListView::SetColumnTwips(int column, int twips)
{
    room->SetUsual(column, twips);
}

int ResultListView::sizeHintForColumn(int column) const
{
    return std::min(room->Needed(column), viewport()->width());
}

void ResultListView::UseSmallText()
{
    smallText = true;
    setFont(SmallerFont(font()));
}

/// Rows are as high, and titles as large, as the font of the desktop wants them, which may become
/// another while the list is there.
void ResultListView::followFont()
{
    largeFont = smallText ? SmallerFont(font(), 1.0 / smallFontScale) : font();
    verticalHeader()->setDefaultSectionSize(QFontMetrics(largeFont).height() + rowPaddingPixels);
    fitTitles(list.Columns());
    if (room)
        room->MeasureAgain();
}

void ResultListView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    room->Share();
}

void ResultListView::showEvent(QShowEvent *event)
{
    QTableView::showEvent(event);
    room->Share();
}

void ResultListView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        followFont();
}

void ResultListView::ShowHeaderIcon(int column, Qt::SortOrder order, bool show)
{
    if (show) {
        arrowColumn = column;
        arrowOrder = order;
    } else if (arrowColumn == column) {
        arrowColumn = -1;
    }
    showArrow();
}

void ResultListView::showArrow()
{
    QHeaderView *header = horizontalHeader();
    header->setSortIndicatorShown(arrowColumn >= 0);
    header->setSortIndicator(arrowColumn, arrowOrder);
}

void ResultListView::SortRows(const std::vector<QString> &keys, Qt::SortOrder order)
{
    sortOrder = order;
    list.SortRows(keys, order);
}

int ResultListView::SelectedRow() const
{
    return tools->Filter()->ChosenRow();
}

void ResultListView::keyPressEvent(QKeyEvent *event)
{
    if (list.HasCheckBoxes() && event->key() == Qt::Key_Space
        && event->modifiers() == Qt::NoModifier) {
        turnCheckBoxes();
        event->accept();
        return;
    }
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QTableView::keyPressEvent(event);
        return;
    }
    event->accept();
    // A key that is held down chooses once.
    if (!event->isAutoRepeat() && SelectedRow() >= 0)
        Q_EMIT RowChosen(SelectedRow());
}

void ResultListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && cell.isValid() && SelectedRow() == cell.row())
        Q_EMIT RowChosen(cell.row());
}

void ResultListView::turnCheckBoxes()
{
    RowFilter *filter = tools->Filter();
    int lead = filter->CurrentRow() >= 0 ? filter->CurrentRow() : filter->ChosenRow();
    if (lead < 0) {
        // Before the first key or click the cursor stands nowhere, and the first row is meant.
        lead = filter->FirstShown();
        if (lead < 0)
            return;
        setCurrentIndex(list.index(lead, 0));
    }
    const bool checked = !list.IsChecked(lead);
    QList<int> turned{lead};
    if (selectionModel()->isRowSelected(lead))
        turned = filter->SelectedRows();
    for (const int row : turned)
        list.SetChecked(row, checked);
}

void ResultListView::keyboardSearch(const QString &search)
{
    // The letters would lead to rows that Find has hidden.
    if (!tools->Filter()->IsActive())
        QTableView::keyboardSearch(search);
}
