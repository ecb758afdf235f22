#include "tables/FlexGrid.h"

#include "controls/Twips.h"
#include "controls/WrappedText.h"
#include "tables/ColumnRoom.h"
#include "tables/ColumnWidths.h"
#include "tables/GridHeader.h"
#include "tables/MarkColumn.h"
#include "tables/NewRowData.h"
#include "tables/RowFilter.h"
#include "tables/TableLook.h"
#include "tables/TableMarks.h"
#include "tables/TableTools.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int leastCharacters = 5;
constexpr int mostRowPixels = 32'000;
constexpr int idleMilliseconds = 4;
constexpr int settleMilliseconds = 120;
constexpr int sampledRows = 500;

/// Cells as they are measured: plain text that wraps, "&" and markup shown as they stand.
class WrappedCellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QString text = std::exchange(cell.text, QString());
        cell.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
        QPalette::ColorGroup group = QPalette::Disabled;
        if (cell.state & QStyle::State_Enabled)
            group = cell.state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
        const bool selected = cell.state & QStyle::State_Selected;
        painter->setPen(
            cell.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
        DrawWrappedText(painter,
                        cell.rect.adjusted(wrappedTextSide, wrappedTextEdge, -wrappedTextSide,
                                           -wrappedTextEdge),
                        text, cell.font, cell.displayAlignment);
    }

    /// How wide the text would be in lines of its own: what a double click between two headers
    /// gives the column.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QSize lines = cell.fontMetrics.size(0, cell.text);
        return lines + QSize(2 * wrappedTextSide + 1, 2 * wrappedTextEdge);
    }
};
} // namespace

FlexGrid::FlexGrid(QWidget *parent)
    : QTableView(parent), content(this), header(new GridHeader(this)), idleTimer(this),
      settleTimer(this)
{
    setHorizontalHeader(header);
    setVerticalHeader(new MarkColumn(this));
    setModel(&content);
    // Behind the header, which has to know the columns, and ahead of whoever asks which are shown.
    connect(&content, &QAbstractItemModel::modelReset, this, &FlexGrid::hideColumns);
    setItemDelegate(new WrappedCellDelegate(this));
    SetTableLook(this);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->setMinimumSectionSize(1);
    setAccessibleName(u"Details"_s);
    tools = new TableTools(this);
    idleTimer.setInterval(0);
    settleTimer.setInterval(settleMilliseconds);
    settleTimer.setSingleShot(true);
    connect(&idleTimer, &QTimer::timeout, this, &FlexGrid::measureOnIdle);
    connect(&settleTimer, &QTimer::timeout, this, &FlexGrid::measureAgain);
    connect(verticalHeader(), &QHeaderView::sectionDoubleClicked, this, &FlexGrid::activate);
    connect(tools->Widths(), &ColumnWidths::UserChanged, this, &FlexGrid::userChangedColumns);
    connect(tools->Filter(), &RowFilter::Changed, this, &FlexGrid::measureSight);
    connect(verticalScrollBar(), &QAbstractSlider::sliderReleased, this, [this] {
        if (measured == content.rowCount())
            applyAllHeights();
    });
    sayRows();
}

void FlexGrid::Show(const GridTable &newTable)
{
    idleTimer.stop();
    settleTimer.stop();
    // Nothing is known of the new rows until they are laid out.
    layOutOnShow = true;
    heights.clear();
    measured = 0;
    content.SetTable(newTable);
    header->setVisible(content.HasHeader());
    needs.Begin(font(), content.Table(), content.Marks().Rows);
    showMarks();
    followsWindow = true;
    tools->Widths()->Begin(objectName(), QList<int>(content.columnCount(), 0));
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    sayRows();
    if (isVisible())
        layOut();
}

void FlexGrid::Grow(const GridTable &grown)
{
    // Room for the heights first: the rows are measured as soon as they are in sight. A grid that
    // is yet to be laid out measures all of them then.
    if (!layOutOnShow && grown.Rows.size() > content.rowCount())
        heights.resize(static_cast<size_t>(grown.Rows.size()), 0);
    content.Grow(grown);
    sayRows();
    if (layOutOnShow || !isVisible())
        return;
    measureSight();
    // The scroll bar may have come with the rows.
    widthsMayHaveChanged();
    goOnMeasuring();
}

void FlexGrid::MarkRows(const RowMarks &marks)
{
    if (content.Marks() == marks)
        return;
    content.SetMarks(marks);
    showMarks();
    // Bold text is wider, and may take more lines.
    needs.Begin(font(), content.Table(), marks.Rows);
    widthsMeasuredFor.clear();
    if (isVisible() && !layOutOnShow) {
        fitScrollBars();
        measureAgain();
    }
}

/// "4 entries since 11/02/2026"
void FlexGrid::showMarks()
{
    const RowMarks &marks = content.Marks();
    QString line;
    if (!marks.IsEmpty())
        line = QString::number(marks.Rows.size())
               + (marks.Rows.size() == 1 ? u" entry since "_s : u" entries since "_s)
               + DayInWords(marks.Since);
    tools->Marks()->Show(line);
}

int FlexGrid::Rows() const
{
    return content.rowCount() + (content.HasHeader() ? 1 : 0);
}

int FlexGrid::Cols() const
{
    return content.columnCount();
}

QString FlexGrid::Cell(int row, int column) const
{
    if (!content.HasHeader())
        return content.Cell(row, column);
    return row == 0 ? content.headerData(column, Qt::Horizontal).toString()
                    : content.Cell(row - 1, column);
}

void FlexGrid::SetColumnAlignment(int column, Qt::Alignment alignment)
{
    content.SetAlignment(column, alignment);
}

Qt::Alignment FlexGrid::ColumnAlignment(int column) const
{
    return content.Alignment(column);
}

/// What a screen reader says when the user comes to the grid.
void FlexGrid::sayRows()
{
    const int rows = content.rowCount();
    setAccessibleDescription(QString::number(rows) + (rows == 1 ? u" row"_s : u" rows"_s));
}

void FlexGrid::layOut()
{
    layOutOnShow = false;
    setLeastWidth();
    shareColumns();
    QHeaderView *rows = verticalHeader();
    rows->setUpdatesEnabled(false);
    rows->setDefaultSectionSize(likelyHeight());
    rows->setUpdatesEnabled(true);
    measureAgain();
}

void FlexGrid::setLeastWidth()
{
    header->setMinimumSectionSize(leastCharacters * fontMetrics().averageCharWidth()
                                  + 2 * wrappedTextSide);
}

QList<ColumnShare> FlexGrid::shares() const
{
    QList<double> percents;
    for (const GridColumn &column : content.Table().Columns)
        percents.append(column.Percent);
    return SharesOf(percents);
}

void FlexGrid::hideColumns()
{
    const QList<ColumnShare> columns = shares();
    for (int column = 0; column < columns.size(); ++column)
        setColumnHidden(column, columns[column].Fixed == 0);
}

void FlexGrid::shareColumns()
{
    if (!followsWindow || tools->Widths()->InHand())
        return;
    QList<ColumnShare> columns = shares();
    const bool fills = FillsGrid(columns);
    header->setStretchLastSection(fills);
    ColumnWidths *widths = tools->Widths();
    const int last = LastColumnInSight(this);
    for (int column = 0; column < columns.size(); ++column) {
        const bool rest = fills && column == last;
        if (!rest && !isColumnHidden(column) && widths->IsUsers(column))
            columns[column].Fixed = columnWidth(column);
    }
    const int least = header->minimumSectionSize();
    QList<int> pixels = ColumnPixels(columns, viewport()->width(), least);
    // The last column takes what is left; it would not become narrower than it was set.
    if (fills)
        pixels[last] = least;
    else
        pixels = withRoom(pixels);
    for (int column = 0; column < pixels.size(); ++column)
        widths->SetUsual(column, TwipsFromPixels(pixels[column]));
    header->StretchLast();
}

/// Columns that leave a part of the grid free get what keeps their texts in one line, as far as
/// there is room.
QList<int> FlexGrid::withRoom(const QList<int> &pixels) const
{
    const int room = viewport()->width() - std::accumulate(pixels.begin(), pixels.end(), 0);
    if (room <= 0)
        return pixels;
    QList<ColumnNeed> columns;
    for (int column = 0; column < pixels.size(); ++column) {
        const bool stays = isColumnHidden(column) || tools->Widths()->IsUsers(column);
        columns.append({pixels[column], stays ? 0 : needs.Needed(content.Table(), column)});
    }
    return WithRoom(columns, room);
}

int FlexGrid::sizeHintForColumn(int column) const
{
    return std::min(needs.Needed(content.Table(), column), viewport()->width());
}

QList<int> FlexGrid::columnWidths() const
{
    QList<int> widths;
    for (int column = 0; column < content.columnCount(); ++column)
        widths.append(columnWidth(column));
    return widths;
}

void FlexGrid::userChangedColumns(bool reset)
{
    followsWindow = reset;
    shareColumns();
    header->StretchLast();
    if (!layOutOnShow && columnWidths() != widthsMeasuredFor)
        measureAgain();
}

/// Measures every row anew: those in sight now, the others on idle. Until then they keep the
/// heights that they have.
void FlexGrid::measureAgain()
{
    settleTimer.stop();
    // A scroll bar that comes or goes changes the widths.
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        heights.assign(static_cast<size_t>(content.rowCount()), 0);
        measured = 0;
        nextRow = 0;
        widthsMeasuredFor = columnWidths();
        measureSight();
        shareColumns();
        if (columnWidths() == widthsMeasuredFor)
            break;
    }
    goOnMeasuring();
}

void FlexGrid::goOnMeasuring()
{
    if (isVisible() && measured < content.rowCount())
        idleTimer.start();
}

void FlexGrid::measureSight()
{
    if (settingHeights || layOutOnShow || !isVisible())
        return;
    const QScopedValueRollback setting(settingHeights, true);
    // Rows that turn out lower than they seemed bring others into sight.
    while (true) {
        const Place place = placeNow();
        if (!measureRowsInSight())
            return;
        fitScrollBars();
        goTo(place);
    }
}

/// Now: left alone, the scroll bar would come a moment later, and all widths change under rows that
/// have just been measured.
void FlexGrid::fitScrollBars()
{
    updateGeometries();
    QEvent layout(QEvent::LayoutRequest);
    QTableView::event(&layout);
}

/// True when there was something to measure.
bool FlexGrid::measureRowsInSight()
{
    const int before = measured;
    const int first = rowAt(0);
    if (first < 0)
        return false;
    int row = first;
    int bottom = rowViewportPosition(first);
    for (; row < content.rowCount() && bottom < viewport()->height(); ++row) {
        if (!isRowHidden(row))
            bottom += measuredHeight(row);
    }
    if (measured == before)
        return false;
    applyHeights(first, row - 1);
    return true;
}

void FlexGrid::measureOnIdle()
{
    QElapsedTimer clock;
    clock.start();
    while (nextRow < content.rowCount() && clock.elapsed() < idleMilliseconds)
        measuredHeight(nextRow++);
    if (nextRow < content.rowCount())
        return;
    idleTimer.stop();
    // Under a user who drags the scroll bar the rows stay where they are.
    if (!verticalScrollBar()->isSliderDown())
        applyAllHeights();
}

int FlexGrid::measuredHeight(int row)
{
    int &height = heights[static_cast<size_t>(row)];
    if (height > 0)
        return height;
    const QStringList &cells = content.Table().Rows[row];
    const qsizetype columns = std::min(cells.size(), widthsMeasuredFor.size());
    QFont letters = font();
    letters.setBold(letters.bold() || content.Marks().Rows.contains(row));
    int text = fontMetrics().height();
    for (qsizetype column = 0; column < columns; ++column) {
        const int width = widthsMeasuredFor[column];
        if (width > 0) // What is out of sight makes no row higher.
            text = std::max(text, WrappedTextHeight(cells[column], letters,
                                                    width - 2 * wrappedTextSide, mostRowPixels));
    }
    // All rows together have to stay a number.
    const int most =
        std::min(mostRowPixels, std::numeric_limits<int>::max() / 2 / content.rowCount());
    height = std::min(text + 2 * wrappedTextEdge, most);
    ++measured;
    return height;
}

/// The height of most rows, by the number of their characters: good enough for the length of the
/// scroll bar until the rows are measured.
int FlexGrid::likelyHeight() const
{
    const QList<int> widths = columnWidths();
    const int rows = content.rowCount();
    const int step = std::max(rows / sampledRows, 1);
    qsizetype lines = 0;
    qsizetype sampled = 0;
    for (int row = 0; row < rows; row += step) {
        const QStringList &cells = content.Table().Rows[row];
        qsizetype most = 1;
        for (qsizetype column = 0; column < std::min(cells.size(), widths.size()); ++column) {
            const qsizetype text = cells[column].size() * fontMetrics().averageCharWidth();
            if (widths[column] > 0)
                most = std::max(most, text / widths[column] + 1);
        }
        lines += most;
        ++sampled;
    }
    const qsizetype average = sampled == 0 ? 1 : (lines + sampled / 2) / sampled;
    return static_cast<int>(
        std::min<qsizetype>(average * fontMetrics().height() + 2 * wrappedTextEdge, mostRowPixels));
}

void FlexGrid::applyAllHeights()
{
    if (content.rowCount() == 0)
        return;
    {
        const QScopedValueRollback setting(settingHeights, true);
        const Place place = placeNow();
        applyHeights(0, content.rowCount() - 1);
        fitScrollBars();
        goTo(place);
    }
    widthsMayHaveChanged();
}

/// Gives the rows that are measured their heights.
void FlexGrid::applyHeights(int first, int last)
{
    // A header that paints works out the place of every row after each single change.
    QHeaderView *rows = verticalHeader();
    rows->setUpdatesEnabled(false);
    for (int row = first; row <= last; ++row) {
        const int height = heights[static_cast<size_t>(row)];
        if (height > 0)
            rows->resizeSection(row, height);
    }
    rows->setUpdatesEnabled(true);
    viewport()->update();
}

/// The first row in sight whose height is known stays where it is, whatever changes above it. At
/// either end of the rows the user stays at the end.
FlexGrid::Place FlexGrid::placeNow() const
{
    const QScrollBar *bar = verticalScrollBar();
    if (bar->value() == bar->minimum())
        return {};
    if (bar->value() == bar->maximum())
        return {Place::AtEnd, 0, 0};
    int row = rowAt(0);
    const int firstRow = row;
    while (row >= 0 && row < content.rowCount()
           && rowViewportPosition(row) < viewport()->height()) {
        if (heights[static_cast<size_t>(row)] > 0 && !isRowHidden(row))
            return {Place::AtRow, row, rowViewportPosition(row)};
        ++row;
    }
    return {Place::AtRow, firstRow, rowViewportPosition(firstRow)};
}

void FlexGrid::goTo(const Place &place)
{
    QScrollBar *bar = verticalScrollBar();
    if (place.Kind == Place::AtEnd)
        bar->setValue(bar->maximum());
    else if (place.Kind == Place::AtRow)
        bar->setValue(bar->value() + rowViewportPosition(place.Row) - place.Y);
}

void FlexGrid::widthsMayHaveChanged()
{
    shareColumns();
    // Under a drag every pixel is another width: what counts is the last one.
    if (tools->Widths()->InHand() || columnWidths() == widthsMeasuredFor)
        return;
    idleTimer.stop();
    settleTimer.start();
}

void FlexGrid::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    // Rows are measured as they come into sight, and may push this one out of it again.
    constexpr int attempts = 4;
    int before = -1;
    for (int i = 0; i < attempts && before != verticalScrollBar()->value(); ++i) {
        before = verticalScrollBar()->value();
        QTableView::scrollTo(index, hint);
    }
}

void FlexGrid::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    if (dy != 0)
        measureSight();
}

void FlexGrid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    if (settingHeights || layOutOnShow || !isVisible())
        return;
    widthsMayHaveChanged();
    measureSight();
}

void FlexGrid::showEvent(QShowEvent *event)
{
    QTableView::showEvent(event);
    if (layOutOnShow) {
        layOut();
        return;
    }
    shareColumns();
    if (columnWidths() == widthsMeasuredFor)
        goOnMeasuring();
    else
        measureAgain();
}

void FlexGrid::hideEvent(QHideEvent *event)
{
    QTableView::hideEvent(event);
    idleTimer.stop();
    settleTimer.stop();
}

void FlexGrid::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
        header->setFont(SmallerFont(font()));
        [[fallthrough]];
    case QEvent::StyleChange:
        // What was measured is wrong now, in sight or not.
        widthsMeasuredFor.clear();
        needs.Begin(font(), content.Table(), content.Marks().Rows);
        setLeastWidth();
        if (isVisible() && !layOutOnShow) {
            shareColumns();
            measureAgain();
        }
        break;
    default:
        break;
    }
}

void FlexGrid::activate(int row)
{
    Q_EMIT RowActivated(content.HasHeader() ? row + 1 : row);
}

void FlexGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QTableView::keyPressEvent(event);
        return;
    }
    event->accept();
    // A key that is held down activates once.
    if (!event->isAutoRepeat() && tools->Filter()->CurrentRow() >= 0)
        activate(tools->Filter()->CurrentRow());
}

void FlexGrid::keyboardSearch(const QString &search)
{
    // The letters would lead to rows that Find has hidden.
    if (!tools->Filter()->IsActive())
        QTableView::keyboardSearch(search);
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && cell.isValid())
        activate(cell.row());
}
