#include "tables/BesideTable.h"

#include <QBoxLayout>
#include <QTableView>

namespace {
/// The layout of the table's parent, at any depth, in which the table itself stands.
QLayout *layoutOf(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    if (!parent)
        return nullptr;
    const QList<QLayout *> layouts = parent->findChildren<QLayout *>();
    for (QLayout *layout : layouts) {
        if (layout->indexOf(widget) >= 0)
            return layout;
    }
    return nullptr;
}

void placeInColumn(QBoxLayout *column, const QTableView *table, QWidget *widget, TableEdge edge)
{
    const int place = column->indexOf(table);
    column->insertWidget(edge == TableEdge::Above ? place : place + 1, widget);
}

/// The table makes room for a column of the table and the widget.
void placeInNewColumn(QLayout *layout, QTableView *table, QWidget *widget, TableEdge edge)
{
    auto *both = new QWidget(table->parentWidget());
    const QWidget *focus = table->window()->focusWidget();
    // The item that held the table alone comes back to us.
    delete layout->replaceWidget(table, both);
    auto *column = new QVBoxLayout(both);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(table);
    placeInColumn(column, table, widget, edge);
    both->show();
    table->show();
    if (focus == table)
        table->setFocus();
}

void coverEdge(const QTableView *table, QWidget *widget, TableEdge edge)
{
    const int height = widget->sizeHint().height();
    const int top = edge == TableEdge::Above ? 0 : table->height() - height;
    widget->setGeometry(0, top, table->width(), height);
    widget->raise();
}
} // namespace

void PlaceBesideTable(QTableView *table, QWidget *widget, TableEdge edge)
{
    QLayout *layout = layoutOf(table);
    auto *column = qobject_cast<QBoxLayout *>(layout);
    if (column && column->direction() == QBoxLayout::TopToBottom)
        placeInColumn(column, table, widget, edge);
    else if (layout)
        placeInNewColumn(layout, table, widget, edge);
    else
        coverEdge(table, widget, edge);
}
