#include "tables/TableMarks.h"

#include "controls/WrappedLabel.h"
#include "tables/BesideTable.h"
#include "tables/RowFilter.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {
/// Whoever has forgotten the command shall not take a part for the whole.
constexpr QStringView othersHidden = u"  (the other rows are not shown)";
} // namespace

TableMarks::TableMarks(QTableView *table, RowFilter *rowFilter, QMenu *tableMenu)
    : QObject(table), view(table), filter(rowFilter), menu(tableMenu),
      onlyNew(new QAction(u"Show Only What Is &New"_s, this)), lblNew(new WrappedLabel(table))
{
    onlyNew->setObjectName(u"mnuListOnlyNew"_s);
    onlyNew->setCheckable(true);
    lblNew->setObjectName(u"lblNew"_s);
    lblNew->setTextFormat(Qt::PlainText);
    lblNew->hide();
    view->verticalHeader()->hide();
    view->setCornerButtonEnabled(false);
    connect(onlyNew, &QAction::toggled, this, &TableMarks::showOnlyNew);
}

void TableMarks::OfferBefore(QAction *action)
{
    placeInMenu = action;
}

void TableMarks::Show(const QString &line)
{
    text = line;
    offerOnlyNew(!text.isEmpty());
    view->verticalHeader()->setVisible(!text.isEmpty());
    showLine();
}

void TableMarks::offerOnlyNew(bool offered)
{
    if (!offered) {
        onlyNew->setChecked(false);
        menu->removeAction(onlyNew);
    } else if (!menu->actions().contains(onlyNew)) {
        menu->insertAction(placeInMenu, onlyNew);
    }
}

void TableMarks::showOnlyNew(bool only)
{
    filter->ShowOnlyNew(only);
    showLine();
}

void TableMarks::showLine()
{
    const bool shown = tableInSight && !text.isEmpty();
    if (shown && lblNew->parentWidget() == view)
        PlaceBesideTable(view, lblNew, TableEdge::Above);
    lblNew->setText(onlyNew->isChecked() ? text + othersHidden.toString() : text);
    lblNew->setVisible(shown);
}

void TableMarks::GoWithTable(bool tableShown)
{
    tableInSight = tableShown;
    showLine();
}
