#include "controls/FlexGrid.h"

#include "controls/TableTools.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

FlexGrid::FlexGrid(QWidget *parent) : QTableView(parent), model(this)
{
    setModel(&model);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    tools = new TableTools(this);
}

void FlexGrid::Show(const GridTable &newTable)
{
    model.SetTable(newTable);
    horizontalHeader()->setVisible(model.HasHeader());
}

void FlexGrid::Clear()
{
    Show({});
}

int FlexGrid::Rows() const
{
    return model.rowCount() + (model.HasHeader() ? 1 : 0);
}

int FlexGrid::Cols() const
{
    return model.columnCount();
}

QString FlexGrid::Cell(int row, int column) const
{
    if (!model.HasHeader())
        return model.Cell(row, column);
    return row == 0 ? model.headerData(column, Qt::Horizontal).toString()
                    : model.Cell(row - 1, column);
}

void FlexGrid::SetColumnAlignment(int column, Qt::Alignment alignment)
{
    model.SetAlignment(column, alignment);
}

void FlexGrid::activate(int row)
{
    Q_EMIT RowActivated(model.HasHeader() ? row + 1 : row);
}

void FlexGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QTableView::keyPressEvent(event);
        return;
    }
    event->accept();
    // A key that is held down activates once.
    if (!event->isAutoRepeat() && currentIndex().isValid())
        activate(currentIndex().row());
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && cell.isValid())
        activate(cell.row());
}
