// The room of a plain table: whose texts are cut gets it, until the user arranges the columns.

#include "support/HalvaneTest.h"
#include "tables/ViewRoom.h"

#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString usualName = u"A usual name"_s;
const QString longName = u"A name that is much longer than names usually are"_s;
constexpr int name = 0;
constexpr int outcome = 1;
constexpr int place = 2; ///< the one that stretches
constexpr int enough = 1200;
} // namespace

class tst_ViewRoom : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void whatIsCutGetsRoom();
    void withoutRoomEachIsAsWideAsUsual();
    void aRowThatIsScrolledIntoSightIsSeen();
    void aCellThatChangesIsSeen();
    void whatHasBeenSeenCountsOn();
    void aColumnOfTheUsersStays();

private:
    void add(const QString &text)
    {
        model.appendRow({new QStandardItem(text), new QStandardItem, new QStandardItem});
        room->Share();
    }
    int needed(int row) const
    {
        const QAbstractItemView &cells = *view;
        return cells.sizeHintForIndex(model.index(row, name)).width();
    }
    int width(int column) const { return view->columnWidth(column); }

    QStandardItemModel model;
    std::unique_ptr<QTableView> view;
    ViewRoom *room = nullptr;
};

void tst_ViewRoom::init()
{
    model.clear();
    model.setColumnCount(3);
    view = std::make_unique<QTableView>();
    view->setModel(&model);
    view->setShowGrid(false);
    room = new ViewRoom(view.get(), {usualName, u"Outcome"_s, u"Place"_s}, place);
    view->resize(enough, 300);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
}

void tst_ViewRoom::whatIsCutGetsRoom()
{
    const int usual = width(name);
    const int beside = width(outcome);
    add(usualName);
    QCOMPARE(width(name), usual);
    add(longName);
    QVERIFY(needed(1) > usual);
    QCOMPARE(width(name), needed(1));
    QCOMPARE(width(outcome), beside);
    QCOMPARE(width(name) + width(outcome) + width(place), view->viewport()->width());
}

void tst_ViewRoom::withoutRoomEachIsAsWideAsUsual()
{
    const int usual = width(name);
    add(longName);
    QVERIFY(width(name) > usual);
    view->resize(usual, 300);
    QTRY_COMPARE(width(name), usual);
    view->resize(enough, 300);
    QTRY_COMPARE(width(name), needed(0));
}

void tst_ViewRoom::aRowThatIsScrolledIntoSightIsSeen()
{
    constexpr int many = 300;
    for (int i = 0; i < many; ++i)
        model.appendRow({new QStandardItem(usualName), new QStandardItem, new QStandardItem});
    add(longName);
    const int usual = width(name);
    QVERIFY(usual < needed(many));
    view->scrollToBottom();
    QTRY_COMPARE(width(name), needed(many));
}

void tst_ViewRoom::aCellThatChangesIsSeen()
{
    add(usualName);
    model.item(0, name)->setText(longName);
    QCOMPARE(width(name), needed(0));
}

/// A column that grew does not shrink again under the eyes of the user.
void tst_ViewRoom::whatHasBeenSeenCountsOn()
{
    add(longName);
    const int wide = width(name);
    model.item(0, name)->setText(usualName);
    QCOMPARE(width(name), wide);
}

void tst_ViewRoom::aColumnOfTheUsersStays()
{
    constexpr int chosen = 90;
    view->setColumnWidth(name, chosen);
    const int beside = width(outcome);
    add(longName);
    model.item(0, outcome)->setText(longName);
    view->resize(enough + 200, 300);
    QTRY_COMPARE(width(name) + width(outcome) + width(place), view->viewport()->width());
    QCOMPARE(width(name), chosen);
    QCOMPARE(width(outcome), beside);
}

HALVANE_TEST(tst_ViewRoom)
#include "tst_ViewRoom.moc"
