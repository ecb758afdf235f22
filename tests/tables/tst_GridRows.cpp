#include "support/HalvaneTest.h"
#include "support/Ticks.h"
#include "tables/GridUser.h"

#include <QSignalSpy>
#include <QStyleFactory>

#include <malloc.h>
#include <memory>

// How high the rows of a grid are, when they are measured, and what the user sees of that.

namespace {
constexpr int many = 20'000;
constexpr int scroll = 50; // rows that a screen could hold at most

size_t bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}
} // namespace

class tst_GridRows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { user.reset(); }

    void everyRowFitsItsText_data();
    void everyRowFitsItsText();
    void aLongWordIsBrokenInside();
    void lineEndsInACell_data();
    void lineEndsInACell();
    void theHighestCellCounts();
    void anEmptyRowIsOneLineHigh();
    void aCellOfAbsurdLength();

    void onlyRowsInSightAreMeasuredAtFirst_data();
    void onlyRowsInSightAreMeasuredAtFirst();
    void theOthersFollowAndThatEnds();
    void nothingIsMeasuredBeforeItIsSeen();
    void aHiddenGridRests();
    void aGridShownAgainMeasuresNothingTwice();
    void bytesARow();

    void theTopRowStaysWhereItIs();
    void theEndStaysTheEnd();
    void aJumpMeasuresWhereItLands();
    void scrollingUpIntoRowsNotMeasured();
    void endAndHomeKeys();
    void pageDownShowsTheCurrentRow();
    void underADraggedScrollBarNothingMoves();
    void anotherTableStartsAtItsTop();

    void aResizeMeasuresOnceItHasEnded();
    void aDragMeasuresOnceItHasEnded();
    void aScrollBarThatComesCounts();
    void anotherFontMeasuresAnew();
    void anotherStyleMeasuresAnew();
    void foundRowsAreMeasured();

private:
    void show(const GridTable &table)
    {
        user->Show();
        user->Grid->Show(table);
    }
    QScrollBar *bar() const { return user->Grid->verticalScrollBar(); }

    std::unique_ptr<GridUser> user;
};

void tst_GridRows::init()
{
    GridUser::ForgetWidths();
    user = std::make_unique<GridUser>();
}

void tst_GridRows::everyRowFitsItsText_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {150, 320, 600, 1000, 1600})
        QTest::addRow("%d pixels", width) << width;
}

void tst_GridRows::everyRowFitsItsText()
{
    QFETCH(const int, width);
    user->Window.resize(width, 400);
    show(DocketOf(400));
    QTRY_VERIFY(user->AllMeasured());
    for (int row = 0; row < 400; ++row)
        QCOMPARE(user->Misfit(row), QString());
}

void tst_GridRows::aLongWordIsBrokenInside()
{
    show(TableOf({{u"A"_s, 30}, {u"B"_s, 70}}, {{QString(200, u'W'), u"x"_s}, {u"W"_s, u"x"_s}}));
    QVERIFY(user->Grid->rowHeight(0) > 5 * user->Grid->rowHeight(1));
    QCOMPARE(user->Misfit(0), QString());
}

void tst_GridRows::lineEndsInACell_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("LF") << u"a\nb\nc"_s;
    QTest::addRow("CR LF") << u"a\r\nb\r\nc"_s;
    QTest::addRow("CR") << u"a\rb\rc"_s;
}

void tst_GridRows::lineEndsInACell()
{
    QFETCH(const QString, text);
    show(TableOf({{u"A"_s, 100}}, {{text}, {u"a"_s}}));
    const int line = QFontMetrics(user->Grid->font()).height();
    QCOMPARE(user->Grid->rowHeight(0) - user->Grid->rowHeight(1), 2 * line);
}

void tst_GridRows::theHighestCellCounts()
{
    const QString words = u"word "_s.repeated(60);
    show(TableOf({{u"A"_s, 20}, {u"B"_s, 60}, {u"C"_s, 20}},
                 {{u"x"_s, words, u"x"_s}, {words, words, u"x"_s}, {u"x"_s, u"x"_s, words}}));
    QVERIFY(user->Grid->rowHeight(0) < user->Grid->rowHeight(1));
    QCOMPARE(user->Grid->rowHeight(1), user->Grid->rowHeight(2));
    QCOMPARE(user->MisfitInSight(), QString());
}

void tst_GridRows::anEmptyRowIsOneLineHigh()
{
    show(TableOf({{u"A"_s, 50}, {u"B"_s, 50}}, {{}, {QString(), QString()}, {u"a"_s, u"b"_s}}));
    QCOMPARE(user->Grid->rowHeight(0), user->Grid->rowHeight(2));
    QCOMPARE(user->Grid->rowHeight(1), user->Grid->rowHeight(2));
}

void tst_GridRows::aCellOfAbsurdLength()
{
    GridTable table = TableOf({{u"A"_s, 1}, {u"B"_s, 99}}, {});
    for (int row = 0; row < 3; ++row)
        table.Rows.append({QString(30'000, u'W'), u"x"_s});
    show(table);
    QTRY_VERIFY(user->AllMeasured());
    QVERIFY(user->Grid->rowHeight(1) > 10'000);
    QVERIFY(user->Grid->rowHeight(1) <= 32'000);
    bar()->setValue(bar()->maximum());
    QVERIFY(user->Grid->rowViewportPosition(2) + user->Grid->rowHeight(2)
            <= user->Grid->viewport()->height());
}

void tst_GridRows::onlyRowsInSightAreMeasuredAtFirst_data()
{
    QTest::addColumn<int>("rows");
    QTest::addRow("2,000 rows") << 2'000;
    QTest::addRow("20,000 rows") << many;
}

void tst_GridRows::onlyRowsInSightAreMeasuredAtFirst()
{
    QFETCH(const int, rows);
    show(DocketOf(rows));
    QVERIFY(user->Grid->MeasuredRows() > 3);
    QVERIFY(user->Grid->MeasuredRows() < scroll);
    QCOMPARE(user->MisfitInSight(), QString());
    const int before = user->Grid->MeasuredRows();
    user->Grid->viewport()->repaint();
    QCOMPARE(user->Grid->MeasuredRows(), before);
}

void tst_GridRows::theOthersFollowAndThatEnds()
{
    show(DocketOf(many));
    QVERIFY(user->IsBusy());
    QTRY_COMPARE_WITH_TIMEOUT(user->Grid->MeasuredRows(), many, 60'000);
    QTRY_VERIFY(!user->IsBusy());
    for (int row = 0; row < many; row += 97)
        QCOMPARE(user->Misfit(row), QString());
    // Nothing that was begun comes back later.
    Ticks(200);
    QVERIFY(!user->IsBusy());
}

void tst_GridRows::nothingIsMeasuredBeforeItIsSeen()
{
    user->Grid->Show(DocketOf(300));
    QCOMPARE(user->Grid->MeasuredRows(), 0);
    QVERIFY(!user->IsBusy());
    user->Show();
    QCOMPARE(user->MisfitInSight(), QString());
    QTRY_VERIFY(user->AllMeasured());
}

void tst_GridRows::aHiddenGridRests()
{
    show(DocketOf(many));
    user->Grid->hide();
    QVERIFY(!user->IsBusy());
    const int before = user->Grid->MeasuredRows();
    Ticks(20);
    QCOMPARE(user->Grid->MeasuredRows(), before);
    user->Grid->show();
    QTRY_VERIFY(user->Grid->MeasuredRows() > before);
}

void tst_GridRows::aGridShownAgainMeasuresNothingTwice()
{
    show(DocketOf(500));
    QTRY_VERIFY(user->AllMeasured());
    bar()->setValue(700);
    user->Grid->hide();
    user->Grid->show();
    QCOMPARE(user->Grid->MeasuredRows(), 500);
    QCOMPARE(bar()->value(), 700);
}

void tst_GridRows::bytesARow()
{
    show(DocketOf(50));
    QTRY_VERIFY(user->AllMeasured());
    const GridTable table = DocketOf(many);
    const size_t before = bytesInUse();
    user->Grid->Show(table);
    QTRY_VERIFY_WITH_TIMEOUT(user->AllMeasured(), 60'000);
    Ticks(1);
    // The texts are shared with the table; what the grid adds to a row is its place.
    const size_t added = bytesInUse() - before;
    QVERIFY2(added / many < 64, qPrintable(QString::number(added / many)));
}

void tst_GridRows::theTopRowStaysWhereItIs()
{
    show(DocketOf(3'000));
    bar()->setValue(bar()->maximum() / 2);
    const int row = user->Grid->rowAt(0) + 1;
    const int place = user->Grid->rowViewportPosition(row);
    QVERIFY(user->Grid->MeasuredRows() < 2 * scroll);
    QTRY_VERIFY_WITH_TIMEOUT(user->AllMeasured(), 60'000);
    QCOMPARE(user->Grid->rowViewportPosition(row), place);
    QCOMPARE(user->MisfitInSight(), QString());
    // Not because nothing has changed above it.
    int above = 0;
    for (int i = 0; i < row; ++i)
        above += user->Grid->rowHeight(i);
    QCOMPARE(bar()->value(), above - place);
}

void tst_GridRows::theEndStaysTheEnd()
{
    show(DocketOf(3'000));
    bar()->setValue(bar()->maximum());
    const int last = 2'999;
    const auto bottom = [&] {
        return user->Grid->rowViewportPosition(last) + user->Grid->rowHeight(last);
    };
    QCOMPARE(bottom(), user->Grid->viewport()->height());
    QCOMPARE(user->MisfitInSight(), QString());
    QTRY_VERIFY_WITH_TIMEOUT(user->AllMeasured(), 60'000);
    QCOMPARE(bar()->value(), bar()->maximum());
    QCOMPARE(bottom(), user->Grid->viewport()->height());
}

void tst_GridRows::aJumpMeasuresWhereItLands()
{
    show(DocketOf(many));
    for (const double part : {0.5, 0.9, 0.1, 0.99}) {
        bar()->setValue(static_cast<int>(bar()->maximum() * part));
        QCOMPARE(user->MisfitInSight(), QString());
    }
    QVERIFY(user->Grid->MeasuredRows() < 6 * scroll);
}

void tst_GridRows::scrollingUpIntoRowsNotMeasured()
{
    show(DocketOf(many));
    bar()->setValue(bar()->maximum() / 2);
    for (int i = 0; i < 40; ++i) {
        const int row = user->Grid->rowAt(0) + 1;
        const int place = user->Grid->rowViewportPosition(row);
        bar()->setValue(bar()->value() - 30);
        QCOMPARE(user->Grid->rowViewportPosition(row), place + 30);
        QCOMPARE(user->MisfitInSight(), QString());
    }
}

void tst_GridRows::endAndHomeKeys()
{
    show(DocketOf(many));
    user->Click(0);
    QTest::keyClick(user->Grid, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(user->Grid->currentIndex().row(), many - 1);
    QCOMPARE(bar()->value(), bar()->maximum());
    QCOMPARE(user->MisfitInSight(), QString());
    QTest::keyClick(user->Grid, Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(bar()->value(), 0);
}

void tst_GridRows::pageDownShowsTheCurrentRow()
{
    show(DocketOf(many));
    user->Click(0);
    int before = 0;
    for (int page = 0; page < 20; ++page) {
        QTest::keyClick(user->Grid, Qt::Key_PageDown);
        const QModelIndex current = user->Grid->currentIndex();
        QVERIFY(current.row() > before);
        before = current.row();
        QVERIFY(user->Grid->viewport()->rect().contains(user->Grid->visualRect(current)));
    }
}

void tst_GridRows::underADraggedScrollBarNothingMoves()
{
    show(DocketOf(2'000));
    bar()->setSliderDown(true);
    bar()->setValue(bar()->maximum() / 2);
    const int most = bar()->maximum();
    QTRY_VERIFY_WITH_TIMEOUT(user->AllMeasured(), 60'000);
    QCOMPARE(bar()->maximum(), most);
    const int row = user->Grid->rowAt(0) + 1;
    const int place = user->Grid->rowViewportPosition(row);
    bar()->setSliderDown(false);
    QVERIFY(bar()->maximum() != most);
    QCOMPARE(user->Grid->rowViewportPosition(row), place);
    QCOMPARE(user->Misfit(1'900), QString());
}

void tst_GridRows::anotherTableStartsAtItsTop()
{
    show(DocketOf(500));
    bar()->setValue(700);
    user->Grid->Show(DocketOf(600));
    QCOMPARE(bar()->value(), 0);
    QCOMPARE(user->MisfitInSight(), QString());
}

void tst_GridRows::aResizeMeasuresOnceItHasEnded()
{
    show(DocketOf(60));
    QTRY_VERIFY(user->AllMeasured());
    const QSignalSpy heights(user->Grid->verticalHeader(), &QHeaderView::sectionResized);
    for (int width = 590; width > 300; width -= 10) {
        user->Window.resize(width, 400);
        QCoreApplication::sendPostedEvents();
    }
    QCOMPARE(heights.count(), 0);
    QTRY_VERIFY(heights.count() > 0);
    QTRY_VERIFY(user->AllMeasured());
    for (int row = 0; row < 60; ++row)
        QCOMPARE(user->Misfit(row), QString());
}

void tst_GridRows::aDragMeasuresOnceItHasEnded()
{
    show(DocketOf(60));
    QTRY_VERIFY(user->AllMeasured());
    const QSignalSpy heights(user->Grid->verticalHeader(), &QHeaderView::sectionResized);
    user->PressAndMove(0, 200);
    Ticks(200);
    QCOMPARE(heights.count(), 0);
    user->Release();
    QVERIFY(heights.count() > 0);
    QCOMPARE(user->MisfitInSight(), QString());
    QTRY_VERIFY(user->AllMeasured());
    for (int row = 0; row < 60; ++row)
        QCOMPARE(user->Misfit(row), QString());
}

void tst_GridRows::aScrollBarThatComesCounts()
{
    show(DocketOf(2));
    const int wide = user->Grid->viewport()->width();
    QVERIFY(!bar()->isVisible());
    user->Grid->Show(DocketOf(100));
    QVERIFY(bar()->isVisible());
    QVERIFY(user->Grid->viewport()->width() < wide);
    QVERIFY(!user->Grid->horizontalScrollBar()->isVisible());
    QCOMPARE(user->MisfitInSight(), QString());
    user->Grid->Show(DocketOf(2));
    QCOMPARE(user->Grid->viewport()->width(), wide);
    QCOMPARE(user->MisfitInSight(), QString());
}

void tst_GridRows::anotherFontMeasuresAnew()
{
    show(DocketOf(100));
    QTRY_VERIFY(user->AllMeasured());
    const int before = user->Grid->rowHeight(0);
    QFont font = user->Grid->font();
    font.setPointSizeF(font.pointSizeF() * 2.0);
    user->Window.setFont(font);
    QVERIFY(user->Grid->rowHeight(0) > before);
    QCOMPARE(user->MisfitInSight(), QString());
    QVERIFY(user->Grid->horizontalHeader()->font().pointSizeF() > font.pointSizeF() * 0.8);
    QTRY_VERIFY(user->AllMeasured());
    QCOMPARE(user->Misfit(99), QString());
}

void tst_GridRows::anotherStyleMeasuresAnew()
{
    show(DocketOf(many));
    QTRY_VERIFY(user->Grid->MeasuredRows() > 2 * scroll);
    const std::unique_ptr<QStyle> style(QStyleFactory::create(u"Windows"_s));
    user->Grid->setStyle(style.get());
    QVERIFY(user->Grid->MeasuredRows() < 2 * scroll);
    QCOMPARE(user->MisfitInSight(), QString());
    user->Grid->setStyle(nullptr);
}

void tst_GridRows::foundRowsAreMeasured()
{
    GridTable table = DocketOf(many);
    for (int row = 15'000; row < many; row += 100)
        table.Rows[row] = {u"FOUND"_s, table.Rows[row][1]};
    show(table);
    QTest::keySequence(user->Grid, QKeySequence::Find);
    QTest::keyClicks(QApplication::focusWidget(), u"FOUND"_s);
    QCOMPARE(user->Grid->rowAt(0), 15'000);
    QCOMPARE(user->MisfitInSight(), QString());
    QTRY_VERIFY_WITH_TIMEOUT(user->AllMeasured(), 60'000);
    QCOMPARE(user->MisfitInSight(), QString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(user->MisfitInSight(), QString());
    for (int row = 0; row < many; row += 101)
        QCOMPARE(user->Misfit(row), QString());
}

HALVANE_TEST(tst_GridRows)
#include "tst_GridRows.moc"
