#include "tables/TableLook.h"

#include <QFontInfo>
#include <QHeaderView>
#include <QTableView>

void SetTableLook(QTableView *table)
{
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setTabKeyNavigation(false);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView *header = table->horizontalHeader();
    header->setHighlightSections(false);
    // So that a title and the sort arrow share a column of its width.
    header->setFont(SmallerFont(table->font()));
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QFont SmallerFont(QFont font, double scale)
{
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale);
    return font;
}
