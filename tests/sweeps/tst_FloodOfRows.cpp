// A search whose rows go on and on: what they cost, how long the window is away, what they take of
// the memory, and whether the next search is right.

#include "namesearch/NameResultsWindow.h"
#include "namesearch/SearchDesk.h"
#include "support/HalvaneTest.h"
#include "sweeps/FloodRows.h"
#include "sweeps/FloodTest.h"
#include "tables/ResultListView.h"

#include <QTest>

class tst_FloodOfRows : public FloodTest
{
    Q_OBJECT
private Q_SLOTS:
    void rows_data();
    void rows();

private:
    FloodCost search(const FloodList &list, int rows);
};

FloodCost tst_FloodOfRows::search(const FloodList &list, int rows)
{
    flood->Answer(RowsOf(list, rows));
    NameResultsWindow *window = WindowOf(list);
    const FloodCost cost = Measure([&] { Run(window); });
    const int shown = ListOf(window)->List()->rowCount();
    if (shown != rows)
        qFatal("%d rows of %d are shown", shown, rows);
    Tell(qPrintable(QString::number(rows) + u" rows"_s), cost);
    Tell("closing", Measure([&] { Close(window); }));
    return cost;
}

void tst_FloodOfRows::rows_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < floodLists.size(); ++i)
        QTest::newRow(floodLists.at(i).Name) << static_cast<int>(i);
}

void tst_FloodOfRows::rows()
{
    QFETCH(int, index);
    const FloodList &list = floodLists.at(static_cast<size_t>(index));
    // All lists share the way of a row; one of them has it a million times.
    const int whole = index == 0 ? millionRows : millionRows / 5;
    const int part = Scaled(whole) / rowsOfPiece / Fold * rowsOfPiece;
    Connect();
    const FloodCost less = search(list, part);
    const FloodCost all = search(list, Fold * part);
    CheckFlood(less, all);
    SearchOnce();
}

HALVANE_TEST(tst_FloodOfRows)
#include "tst_FloodOfRows.moc"
