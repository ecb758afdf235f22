#include "support/HalvaneTest.h"
#include "support/ProcessorTime.h"
#include "tables/NamesUser.h"
#include "tables/RowFilter.h"

#include <QSignalSpy>

#include <array>

using namespace Qt::StringLiterals;

// What Find has hidden is not chosen: in a list and in a grid, by whatever selects.

namespace {
/// A way of selecting, with the rows 1 and 3 hidden, and what is selected then.
struct Way
{
    const char *name;
    void (*select)(const NamesUser &user);
    QStringView selected;
};
const std::array<Way, 11> ways{{
    {"Ctrl+A",
     [](const NamesUser &user) { QTest::keySequence(user.Table, QKeySequence::SelectAll); },
     u"0 2 4"},
    {"select all", [](const NamesUser &user) { user.Table->selectAll(); }, u"0 2 4"},
    {"Shift+click",
     [](const NamesUser &user) {
         user.Click(0);
         user.Click(4, Qt::ShiftModifier);
     },
     u"0 2 4"},
    {"Shift+arrow",
     [](const NamesUser &user) {
         user.Click(0);
         QTest::keyClick(user.Table, Qt::Key_Down, Qt::ShiftModifier);
     },
     u"0 2"},
    {"Shift+End",
     [](const NamesUser &user) {
         user.Click(2);
         QTest::keyClick(user.Table, Qt::Key_PageDown, Qt::ShiftModifier);
     },
     u"2 4"},
    {"a drag", [](const NamesUser &user) { user.Drag(0, 4); }, u"0 2 4"},
    {"Ctrl+click and Shift+Ctrl+click",
     [](const NamesUser &user) {
         user.Click(4, Qt::ControlModifier);
         user.Click(0, Qt::ControlModifier | Qt::ShiftModifier);
     },
     u"0 2 4"},
    {"a row by the program", [](const NamesUser &user) { user.Table->selectRow(1); }, u""},
    {"all rows by the program",
     [](const NamesUser &user) {
         const QAbstractItemModel *model = user.Table->model();
         user.Table->selectionModel()->select(
             QItemSelection(model->index(0, 0), model->index(4, 0)),
             QItemSelectionModel::ClearAndSelect);
     },
     u"0 2 4"},
    {"turning them by the program",
     [](const NamesUser &user) {
         const QAbstractItemModel *model = user.Table->model();
         user.Click(2);
         user.Table->selectionModel()->select(
             QItemSelection(model->index(0, 0), model->index(4, 0)),
             QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
     },
     u"0 4"},
    {"the cursor by the program",
     [](const NamesUser &user) { user.Table->setCurrentIndex(user.Table->model()->index(3, 0)); },
     u""},
}};

} // namespace

class tst_HiddenRows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void noWaySelectsThem_data();
    void noWaySelectsThem();
    void whatIsHiddenLaterIsGivenUp_data() { eachTable(); }
    void whatIsHiddenLaterIsGivenUp();
    void goingToTheTableKeepsWhatIsSelected_data() { eachTable(); }
    void goingToTheTableKeepsWhatIsSelected();
    void shiftGoesOnFromTheCurrentRow_data() { eachTable(); }
    void shiftGoesOnFromTheCurrentRow();
    void lettersDoNotLeadThere_data() { eachTable(); }
    void lettersDoNotLeadThere();

    void aRowThatChanges();
    void aSortedList();
    void rowsThatArrive();
    void theSpaceBar();
    void theSpaceBarWithTheCursorNowhere();
    void theSelectedRowIsReported();
    void theButtonOfTheRowKeepsTheFocus();
    void anotherTableOfTheGrid();
    void hundredThousandRows();
};

void tst_HiddenRows::noWaySelectsThem_data()
{
    QTest::addColumn<bool>("isGrid");
    QTest::addColumn<int>("way");
    for (size_t i = 0; i < ways.size(); ++i) {
        QTest::addRow("list, %s", ways.at(i).name) << false << static_cast<int>(i);
        QTest::addRow("grid, %s", ways.at(i).name) << true << static_cast<int>(i);
    }
}

void tst_HiddenRows::noWaySelectsThem()
{
    QFETCH(bool, isGrid);
    QFETCH(int, way);
    const NamesUser user(isGrid);
    user.Find(u"smith"_s);
    const Way &one = ways.at(static_cast<size_t>(way));
    one.select(user);
    QCOMPARE(user.Selected(), one.selected);
    const QModelIndex current = user.Table->currentIndex();
    QVERIFY(!current.isValid() || !user.Table->isRowHidden(current.row()));
    // What comes into sight again was not chosen by anybody.
    user.Find({});
    QCOMPARE(user.Selected(), one.selected);
}

void tst_HiddenRows::whatIsHiddenLaterIsGivenUp()
{
    QFETCH(bool, isGrid);
    const NamesUser user(isGrid);
    user.Click(0);
    user.Click(3, Qt::ShiftModifier);
    QCOMPARE(user.Selected(), u"0 1 2 3"_s);
    user.Find(u"smith"_s);
    QCOMPARE(user.Selected(), u"0 2"_s);
    QVERIFY(!user.Table->currentIndex().isValid());
    user.Find(u", a"_s);
    QCOMPARE(user.Selected(), u"0"_s);
    user.Find(u"nobody"_s);
    QCOMPARE(user.Selected(), QString());
    user.Find({});
    QCOMPARE(user.Selected(), QString());
}

void tst_HiddenRows::goingToTheTableKeepsWhatIsSelected()
{
    QFETCH(bool, isGrid);
    const NamesUser user(isGrid);
    user.Click(1);
    user.Click(4, Qt::ShiftModifier);
    user.Click(3, Qt::ControlModifier);
    user.Click(3, Qt::ControlModifier);
    user.Find(u"smith"_s);
    QCOMPARE(user.Selected(), u"2 4"_s);
    QVERIFY(!user.Table->currentIndex().isValid());
    user.Tools()->OpenFind();
    QTest::keyClick(user.Window.focusWidget(), Qt::Key_Return);
    QCOMPARE(user.Window.focusWidget(), user.Table);
    QCOMPARE(user.Table->currentIndex().row(), 2);
    QCOMPARE(user.Selected(), u"2 4"_s);
}

void tst_HiddenRows::shiftGoesOnFromTheCurrentRow()
{
    QFETCH(bool, isGrid);
    const NamesUser user(isGrid);
    // Of rows 1 to 2 the one at which the selection began is hidden.
    user.Click(1);
    user.Click(2, Qt::ShiftModifier);
    user.Find(u"smith"_s);
    QCOMPARE(user.Table->currentIndex().row(), 2);
    QTest::keyClick(user.Table, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(user.Selected(), u"2 4"_s);
}

void tst_HiddenRows::lettersDoNotLeadThere()
{
    QFETCH(bool, isGrid);
    const NamesUser user(isGrid);
    user.Find(u"smith"_s);
    user.Click(2);
    QTest::keyClick(user.Table, 'j');
    QCOMPARE(user.Selected(), u"2"_s);
    QCOMPARE(user.Table->currentIndex().row(), 2);
    QTest::keyClick(user.Table, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(user.Selected(), u"2 4"_s);
    // Without words to find they lead to any row.
    user.Find({});
    QTest::keyClick(user.Table, 'j');
    QCOMPARE(user.Table->currentIndex().row(), 1);
}

void tst_HiddenRows::aRowThatChanges()
{
    const NamesUser user(false);
    user.Find(u"smith"_s);
    user.Table->selectAll();
    user.List->setCurrentIndex(user.List->List()->index(2, 0));
    user.Table->selectAll();
    user.List->List()->SetCell(2, 0, u"BROWN"_s);
    QCOMPARE(user.Selected(), u"0 4"_s);
    QCOMPARE(user.List->SelectedRow(), 0);
    QVERIFY(!user.Table->currentIndex().isValid());
    user.List->List()->SetCell(2, 0, u"SMITH"_s);
    user.List->List()->SetCell(1, 0, u"SMITH"_s);
    QCOMPARE(user.Selected(), u"0 4"_s);
    // A check mark is no word: the rows are not sifted again for it.
    user.List->List()->SetCheckBoxes(true);
    const QSignalSpy sifted(user.Tools()->Filter(), &RowFilter::Changed);
    user.List->List()->SetChecked(0, true);
    QCOMPARE(sifted.size(), 0);
}

void tst_HiddenRows::aSortedList()
{
    const NamesUser user(false);
    user.Find(u"smith"_s);
    user.Table->selectAll();
    user.Click(2, Qt::ControlModifier);
    QCOMPARE(user.Selected(), u"0 4"_s);
    std::vector<QString> keys;
    for (const QString &name : fiveNames)
        keys.push_back(name);
    // JONES, B and D; SMITH, A, C and E.
    user.List->SortRows(keys, Qt::AscendingOrder);
    QCOMPARE(user.Selected(), u"2 4"_s);
    QCOMPARE(user.Copied(u"mnuListCopy"_s), u"SMITH, A\nSMITH, E"_s);
    user.Table->selectAll();
    QCOMPARE(user.Selected(), u"2 3 4"_s);
    user.Find({});
    QCOMPARE(user.Selected(), u"2 3 4"_s);
}

void tst_HiddenRows::rowsThatArrive()
{
    const NamesUser user(false);
    user.Find(u"smith"_s);
    user.Table->selectAll();
    user.Fill({u"BROWN"_s, u"SMITHERS"_s});
    QCOMPARE(user.Selected(), u"0 2 4"_s);
    user.Click(0);
    user.Click(6, Qt::ShiftModifier);
    QCOMPARE(user.Selected(), u"0 2 4 6"_s);
    QCOMPARE(user.Copied(u"mnuListCopy"_s), u"SMITH, A\nSMITH, C\nSMITH, E\nSMITHERS"_s);
    user.Find({});
    QCOMPARE(user.Selected(), u"0 2 4 6"_s);
}

void tst_HiddenRows::theSpaceBar()
{
    const NamesUser user(false);
    user.List->List()->SetCheckBoxes(true);
    user.Find(u"smith"_s);
    QTest::keySequence(user.Table, QKeySequence::SelectAll);
    QTest::keyClick(user.Table, Qt::Key_Space);
    QCOMPARE(user.List->List()->CheckedRows(), QList<int>({0, 2, 4}));
    QTest::keyClick(user.Table, Qt::Key_Space);
    QCOMPARE(user.List->List()->CheckedRows(), QList<int>());
    // Of rows that are checked and then hidden, those in sight are turned.
    user.Find({});
    QTest::keySequence(user.Table, QKeySequence::SelectAll);
    QTest::keyClick(user.Table, Qt::Key_Space);
    user.Find(u"jones"_s);
    QTest::keySequence(user.Table, QKeySequence::SelectAll);
    QTest::keyClick(user.Table, Qt::Key_Space);
    QCOMPARE(user.List->List()->CheckedRows(), QList<int>({0, 2, 4}));
}

void tst_HiddenRows::theSpaceBarWithTheCursorNowhere()
{
    const NamesUser user(false);
    user.List->List()->SetCheckBoxes(true);
    user.Find(u"jones"_s);
    QTest::keyClick(user.Table, Qt::Key_Space);
    QCOMPARE(user.List->List()->CheckedRows(), QList<int>({1}));
    user.Find(u"nobody"_s);
    QTest::keyClick(user.Table, Qt::Key_Space);
    QCOMPARE(user.List->List()->CheckedRows(), QList<int>({1}));
}

void tst_HiddenRows::theSelectedRowIsReported()
{
    const NamesUser user(false);
    user.Click(3);
    QList<int> reported;
    connect(user.List, &ResultListView::SelectedRowChanged, this,
            [&] { reported.append(user.List->SelectedRow()); });
    user.Find(u"jones"_s);
    QCOMPARE(reported, QList<int>());
    user.Find(u"smith"_s);
    QVERIFY(!reported.isEmpty());
    QCOMPARE(reported.last(), -1);
}

void tst_HiddenRows::theButtonOfTheRowKeepsTheFocus()
{
    const NamesUser user(false);
    user.Click(1);
    user.Click(2, Qt::ShiftModifier);
    // At no moment between is nothing selected: a button that were turned off for it would lose
    // the focus for good.
    QList<int> reported;
    connect(user.List, &ResultListView::SelectedRowChanged, this,
            [&] { reported.append(user.List->SelectedRow()); });
    user.Find(u"jones"_s);
    QVERIFY(!reported.isEmpty());
    QVERIFY2(!reported.contains(-1), qPrintable(QDebug::toString(reported)));
    QCOMPARE(user.List->SelectedRow(), 1);
}

void tst_HiddenRows::anotherTableOfTheGrid()
{
    const NamesUser user(true);
    user.Find(u"smith"_s);
    user.Table->selectAll();
    user.Fill({u"JONES, A"_s, u"SMITH, B"_s});
    QCOMPARE(user.Selected(), QString());
    user.Table->selectAll();
    QCOMPARE(user.Selected(), u"1"_s);
}

void tst_HiddenRows::hundredThousandRows()
{
    constexpr int rows = 100'000;
    // Of the processor. Each of fifty thousand ranges compared with each takes thirty.
    constexpr double mostSeconds = 10;
    const NamesUser user(false);
    QStringList many;
    for (int i = 0; i < rows; ++i)
        many.append(i % 2 == 0 ? u"SMITH %1"_s.arg(i % 3) : u"JONES"_s);
    user.Fill(many);
    const double before = ProcessorSeconds();
    user.Find(u"smith"_s);
    user.Table->selectAll();
    QCOMPARE(user.Tools()->Filter()->SelectedRows().size(), rows / 2 + 3);
    user.Find(u"smith 1"_s);
    const qsizetype third = user.Tools()->Filter()->ShownRows().size();
    QCOMPARE(user.Tools()->Filter()->SelectedRows().size(), third);
    user.Find(u"smith"_s);
    QCOMPARE(user.Tools()->Filter()->SelectedRows().size(), third);
    user.Table->selectAll();
    user.Table->viewport()->repaint();
    user.Find({});
    QCOMPARE(user.Tools()->Filter()->SelectedRows().size(), rows / 2 + 3);
    const double used = ProcessorSeconds() - before;
    QVERIFY2(used < mostSeconds, qPrintable(QString::number(used)));
}

HALVANE_TEST(tst_HiddenRows)
#include "tst_HiddenRows.moc"
