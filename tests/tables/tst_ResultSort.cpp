#include "support/HalvaneTest.h"
#include "support/ProcessorTime.h"
#include "tables/ResultListView.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

#include <set>

using namespace Qt::StringLiterals;

namespace {
const QList<ListColumn> &columns()
{
    static const QList<ListColumn> all{{u"Name"_s, 1500}, {u"Number"_s, 1500}, {u"Date"_s, 1500}};
    return all;
}

std::vector<QString> keysOf(const ResultListModel &model, int column = 0)
{
    std::vector<QString> keys;
    keys.reserve(static_cast<size_t>(model.Count()));
    for (int row = 0; row < model.Count(); ++row)
        keys.push_back(model.Cell(row, column));
    return keys;
}

QString rowsOf(const ResultListModel &model)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row)
        rows.append(model.index(row, 0).data().toString() + model.index(row, 1).data().toString());
    return rows.join(u' ');
}

void fill(ResultListModel *model, const QStringList &names)
{
    int number = 0;
    for (const QString &name : names)
        model->AddRow({name, QString::number(++number)});
    model->Flush();
}

void clickHeader(const ResultListView &view, int column)
{
    const QHeaderView *header = view.horizontalHeader();
    const QPoint where(header->sectionViewportPosition(column) + 10, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, where);
}

void showView(ResultListView *view)
{
    view->SetColumns(columns());
    view->resize(500, 300);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view));
}

/// The memory that this process has in use, in bytes.
qint64 memoryInUse()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * 4096;
}
} // namespace

class tst_ResultSort : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rowsGoByTheirKeys_data();
    void rowsGoByTheirKeys();
    void equalKeysKeepTheirOrderEitherWay();
    void cellsStayAsTheyAre();
    void modelKeepsTheRulesOfModels();
    void rowsThatWereNotShownYetAreSortedToo();
    void newRowsStandBelow();
    void anEmptyListAndAListOfOne();
    void selectionAndCurrentRowMoveWithTheirRows();
    void theViewShowsTheNewOrder();
    void aHeaderClickTellsItsColumnAndSelectsNothing();
    void theArrowStandsWhereItWasPut();
    void takingAnotherColumnsArrowAwayLeavesIt();
    void doubleClickChoosesARow();
    void aDoubleClickBesideTheRowsChoosesNothing();
    void otherButtonsChooseNothing();
    void enterChoosesTheSelectedRow();
    void enterThatIsHeldDownChoosesOnce();
    void enterOnNothingChoosesNothing();
    void theSelectedRowOfSeveralIsTheCurrentOne();
    void aListMadeAnewHasNoSelectedRow();
    void aHundredThousandRowsAreSortedInTimeAndMemory();
};

void tst_ResultSort::rowsGoByTheirKeys_data()
{
    QTest::addColumn<Qt::SortOrder>("order");
    QTest::addColumn<QString>("rows");
    QTest::newRow("ascending") << Qt::AscendingOrder << u"A2 B3 C1"_s;
    QTest::newRow("descending") << Qt::DescendingOrder << u"C1 B3 A2"_s;
}

void tst_ResultSort::rowsGoByTheirKeys()
{
    QFETCH(Qt::SortOrder, order);
    ResultListModel model;
    model.SetColumns(columns());
    fill(&model, {u"C"_s, u"A"_s, u"B"_s});
    model.SortRows(keysOf(model), order);
    QTEST(rowsOf(model), "rows");
}

void tst_ResultSort::equalKeysKeepTheirOrderEitherWay()
{
    ResultListModel model;
    model.SetColumns(columns());
    fill(&model, {u"B"_s, u"A"_s, u"B"_s, u"A"_s});
    model.SortRows(keysOf(model), Qt::AscendingOrder);
    QCOMPARE(rowsOf(model), u"A2 A4 B1 B3"_s);
    model.SortRows(keysOf(model), Qt::DescendingOrder);
    QCOMPARE(rowsOf(model), u"B1 B3 A2 A4"_s);
}

void tst_ResultSort::cellsStayAsTheyAre()
{
    ResultListModel model;
    model.SetColumns(columns());
    model.AddRow({u">>*B"_s, u"1"_s, u"x"_s, u"beyond the columns"_s});
    model.AddRow({u"A"_s});
    model.SortRows({u"2"_s, u"1"_s}, Qt::AscendingOrder);
    QCOMPARE(model.Cells(0), (QStringList{u"A"_s}));
    QCOMPARE(model.Cells(1), (QStringList{u">>*B"_s, u"1"_s, u"x"_s, u"beyond the columns"_s}));
}

void tst_ResultSort::modelKeepsTheRulesOfModels()
{
    ResultListModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetColumns(columns());
    fill(&model, {u"C"_s, u"A"_s, u"B"_s});
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    QSignalSpy changed(&model, &QAbstractItemModel::layoutChanged);
    model.SortRows(keysOf(model), Qt::AscendingOrder);
    model.AddRow({u"D"_s});
    model.SortRows(keysOf(model), Qt::DescendingOrder);
    QCOMPARE(reset.count(), 0);
    QCOMPARE(changed.count(), 2);
}

void tst_ResultSort::rowsThatWereNotShownYetAreSortedToo()
{
    ResultListModel model;
    model.SetColumns(columns());
    fill(&model, {u"B"_s});
    model.AddRow({u"A"_s, u"2"_s});
    QCOMPARE(model.rowCount(), 1);
    model.SortRows(keysOf(model), Qt::AscendingOrder);
    QCOMPARE(rowsOf(model), u"A2 B1"_s);
}

void tst_ResultSort::newRowsStandBelow()
{
    ResultListModel model;
    model.SetColumns(columns());
    fill(&model, {u"B"_s, u"C"_s});
    model.SortRows(keysOf(model), Qt::DescendingOrder);
    fill(&model, {u"D"_s, u"A"_s});
    QCOMPARE(rowsOf(model), u"C2 B1 D1 A2"_s);
}

void tst_ResultSort::anEmptyListAndAListOfOne()
{
    ResultListModel model;
    model.SetColumns(columns());
    model.SortRows({}, Qt::AscendingOrder);
    QCOMPARE(model.Count(), 0);
    fill(&model, {u"A"_s});
    model.SortRows(keysOf(model), Qt::DescendingOrder);
    QCOMPARE(rowsOf(model), u"A1"_s);
}

void tst_ResultSort::selectionAndCurrentRowMoveWithTheirRows()
{
    ResultListView view;
    view.SetColumns(columns());
    fill(view.List(), {u"C"_s, u"A"_s, u"D"_s, u"B"_s});
    const QPersistentModelIndex kept = view.List()->index(2, 1);
    view.selectRow(0);
    view.selectionModel()->select(view.List()->index(3, 0),
                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(view.currentIndex().row(), 0);
    view.SortRows(keysOf(*view.List()), Qt::AscendingOrder);
    QCOMPARE(rowsOf(*view.List()), u"A2 B4 C1 D3"_s);
    std::set<int> selected;
    for (const QModelIndex &row : view.selectionModel()->selectedRows())
        selected.insert(row.row());
    QCOMPARE(selected, (std::set<int>{1, 2}));
    QCOMPARE(view.currentIndex().row(), 2);
    QCOMPARE(view.SelectedRow(), 2);
    QCOMPARE(kept.row(), 3);
    QCOMPARE(kept.column(), 1);
}

void tst_ResultSort::theViewShowsTheNewOrder()
{
    ResultListView view;
    showView(&view);
    fill(view.List(), {u"C"_s, u"A"_s});
    view.SortRows(keysOf(*view.List()), Qt::AscendingOrder);
    QCOMPARE(view.indexAt(QPoint(5, 5)).data().toString(), u"A"_s);
    QCOMPARE(view.SortOrder(), Qt::AscendingOrder);
    view.SortRows(keysOf(*view.List()), Qt::DescendingOrder);
    QCOMPARE(view.SortOrder(), Qt::DescendingOrder);
    QCOMPARE(view.indexAt(QPoint(5, 5)).data().toString(), u"C"_s);
}

void tst_ResultSort::aHeaderClickTellsItsColumnAndSelectsNothing()
{
    ResultListView view;
    showView(&view);
    fill(view.List(), {u"C"_s, u"A"_s});
    QSignalSpy clicked(&view, &ResultListView::HeaderClicked);
    clickHeader(view, 1);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toInt(), 1);
    QVERIFY(!view.selectionModel()->hasSelection());
    QCOMPARE(rowsOf(*view.List()), u"C1 A2"_s);
}

void tst_ResultSort::theArrowStandsWhereItWasPut()
{
    ResultListView view;
    showView(&view);
    const QHeaderView *header = view.horizontalHeader();
    view.ShowHeaderIcon(2, Qt::DescendingOrder, true);
    clickHeader(view, 1);
    QVERIFY(header->isSortIndicatorShown());
    QCOMPARE(header->sortIndicatorSection(), 2);
    QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
    view.ShowHeaderIcon(2, Qt::DescendingOrder, false);
    clickHeader(view, 1);
    QVERIFY(!header->isSortIndicatorShown());
}

void tst_ResultSort::takingAnotherColumnsArrowAwayLeavesIt()
{
    ResultListView view;
    view.SetColumns(columns());
    view.ShowHeaderIcon(1, Qt::AscendingOrder, true);
    view.ShowHeaderIcon(0, Qt::AscendingOrder, false);
    view.ShowHeaderIcon(2, Qt::AscendingOrder, false);
    QVERIFY(view.horizontalHeader()->isSortIndicatorShown());
    QCOMPARE(view.horizontalHeader()->sortIndicatorSection(), 1);
}

void tst_ResultSort::doubleClickChoosesARow()
{
    ResultListView view;
    showView(&view);
    fill(view.List(), {u"C"_s, u"A"_s});
    QSignalSpy chosen(&view, &ResultListView::RowChosen);
    const QPoint where = view.visualRect(view.List()->index(1, 1)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, where);
    QCOMPARE(view.SelectedRow(), 1);
    QCOMPARE(chosen.count(), 0);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, where);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.first().first().toInt(), 1);
}

void tst_ResultSort::aDoubleClickBesideTheRowsChoosesNothing()
{
    ResultListView view;
    showView(&view);
    fill(view.List(), {u"C"_s});
    view.selectRow(0);
    QSignalSpy chosen(&view, &ResultListView::RowChosen);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                       QPoint(20, view.viewport()->height() - 5));
    QCOMPARE(chosen.count(), 0);
}

void tst_ResultSort::otherButtonsChooseNothing()
{
    ResultListView view;
    showView(&view);
    fill(view.List(), {u"C"_s});
    view.selectRow(0);
    QSignalSpy chosen(&view, &ResultListView::RowChosen);
    QTest::mouseDClick(view.viewport(), Qt::RightButton, {},
                       view.visualRect(view.List()->index(0, 0)).center());
    QCOMPARE(chosen.count(), 0);
}

void tst_ResultSort::enterChoosesTheSelectedRow()
{
    ResultListView view;
    showView(&view);
    fill(view.List(), {u"C"_s, u"A"_s});
    view.selectRow(1);
    QSignalSpy chosen(&view, &ResultListView::RowChosen);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(chosen.last().first().toInt(), 1);
}

void tst_ResultSort::enterThatIsHeldDownChoosesOnce()
{
    ResultListView view;
    showView(&view);
    fill(view.List(), {u"C"_s});
    view.selectRow(0);
    QSignalSpy chosen(&view, &ResultListView::RowChosen);
    for (const bool repeated : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, repeated);
        QCoreApplication::sendEvent(&view, &press);
    }
    QCOMPARE(chosen.count(), 1);
}

void tst_ResultSort::enterOnNothingChoosesNothing()
{
    ResultListView view;
    showView(&view);
    QSignalSpy chosen(&view, &ResultListView::RowChosen);
    QTest::keyClick(&view, Qt::Key_Return);
    fill(view.List(), {u"C"_s});
    QTest::keyClick(&view, Qt::Key_Return);
    QCOMPARE(view.SelectedRow(), -1);
    QCOMPARE(chosen.count(), 0);
}

void tst_ResultSort::theSelectedRowOfSeveralIsTheCurrentOne()
{
    ResultListView view;
    view.SetColumns(columns());
    fill(view.List(), {u"A"_s, u"B"_s, u"C"_s});
    view.selectAll();
    view.selectionModel()->setCurrentIndex(view.List()->index(2, 0), QItemSelectionModel::NoUpdate);
    QCOMPARE(view.SelectedRow(), 2);
    view.selectionModel()->select(view.List()->index(2, 0),
                                  QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    QCOMPARE(view.SelectedRow(), 0);
}

void tst_ResultSort::aListMadeAnewHasNoSelectedRow()
{
    ResultListView view;
    view.SetColumns(columns());
    fill(view.List(), {u"A"_s});
    QSignalSpy changed(&view, &ResultListView::SelectedRowChanged);
    view.selectRow(0);
    QVERIFY(changed.count() > 0);
    changed.clear();
    view.SetColumns(columns());
    QCOMPARE(view.SelectedRow(), -1);
    QVERIFY(changed.count() > 0);
}

void tst_ResultSort::aHundredThousandRowsAreSortedInTimeAndMemory()
{
    constexpr int rows = 100'000;
    // Of the processor, which is the same on a busy machine: it takes a tenth of one. Quadratic
    // sorting takes minutes.
    constexpr double mostSeconds = 10;
    constexpr qint64 mostBytes = 100 * qint64(rows); // a few whole numbers a row, no second list
    ResultListView view;
    showView(&view);
    std::vector<QString> keys;
    for (int i = 0; i < rows; ++i) {
        const int number = static_cast<int>(qint64(i) * 7919 % rows);
        view.List()->AddRow({QString::number(number), u"x"_s});
        keys.push_back(QString::number(number).rightJustified(6, u'0'));
    }
    view.List()->Flush();
    view.selectAll();
    const double start = ProcessorSeconds();
    const qint64 before = memoryInUse();
    view.SortRows(keys, Qt::AscendingOrder);
    const qint64 used = memoryInUse() - before;
    const double seconds = ProcessorSeconds() - start;
    QVERIFY2(seconds < mostSeconds, qPrintable(QString::number(seconds)));
    QVERIFY2(used < mostBytes, qPrintable(QString::number(used)));
    for (int i = 0; i < rows; i += 997)
        QCOMPARE(view.List()->Cell(i, 0), QString::number(i));
    QCOMPARE(view.selectionModel()->selectedRows().size(), rows);
}

HALVANE_TEST(tst_ResultSort)
#include "tst_ResultSort.moc"
