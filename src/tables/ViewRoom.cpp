#include "tables/ViewRoom.h"

#include "tables/ColumnRoom.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>

ViewRoom::ViewRoom(QTableView *table, const QList<QString> &usualTexts, int stretching)
    : QObject(table), view(table), usual(usualTexts), stretchingColumn(stretching),
      needed(usualTexts.size(), 0)
{
    QHeaderView *header = view->horizontalHeader();
    // Only the rows in sight are measured: those below them may be read from a file, page by page.
    header->setResizeContentsPrecision(0);
    header->setSectionResizeMode(stretchingColumn, QHeaderView::Stretch);
    connect(header, &QHeaderView::sectionResized, this, [this](int column) {
        // The column that stretches follows the window and the others.
        arranged |= !sharing && column != stretchingColumn;
    });
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, &ViewRoom::Share);
    connect(view->model(), &QAbstractItemModel::dataChanged, this, &ViewRoom::Share);
    view->viewport()->installEventFilter(this);
    Share();
}

void ViewRoom::Share()
{
    if (arranged)
        return;
    constexpr int margins = 24;
    const QFontMetrics metrics = view->fontMetrics();
    QList<ColumnNeed> columns;
    int room = view->viewport()->width();
    for (int column = 0; column < usual.size(); ++column) {
        // Of the rows in sight; one that has been seen counts on.
        const QAbstractItemView *cells = view;
        needed[column] = std::max(needed[column], cells->sizeHintForColumn(column));
        columns.append({metrics.horizontalAdvance(usual[column]) + margins, needed[column]});
        room -= columns.last().Width;
    }
    const QList<int> widths = WithRoom(columns, room);
    const QScopedValueRollback rollback(sharing, true);
    for (int column = 0; column < widths.size(); ++column) {
        if (column != stretchingColumn)
            view->horizontalHeader()->resizeSection(column, widths[column]);
    }
}

bool ViewRoom::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        Share();
    return QObject::eventFilter(watched, event);
}
