#include "controls/Twips.h"
#include "core/Windows1252.h"
#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {
const QList<ListColumn> &columns()
{
    static const QList<ListColumn> all{{u"Name"_s, 3000, Qt::AlignLeft},
                                       {u"Case <b>Number</b>"_s, 1500, Qt::AlignLeft},
                                       {u"Amount"_s, 1207, Qt::AlignRight}};
    return all;
}

QTimer *flushTimer(ResultListModel *model)
{
    return model->findChild<QTimer *>();
}
} // namespace

class tst_ResultList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rowsAreShownAtMostEveryFortyMilliseconds();
    void rowsOfOneTurnAreOneInsertion();
    void countAndCellsKnowEveryRowAtOnce();
    void flushShowsEverythingNow();
    void flushTellsEvenWithoutNewRows();
    void setCell();
    void missingAndExcessCells();
    void cellsComeBackAsTheyWent_data();
    void cellsComeBackAsTheyWent();
    void clearForgetsWhatWasNotShownYet();
    void modelKeepsTheRulesOfModels();
    void allByteValues();
    void markupIsShownPlain();
    void tipOfACutCellIsPlainText();
    void noteOfARowIsPlainText();
    void cellThatFitsHasNoTip();
    void widthsAreFixedAndInTwips();
    void headersAndAlignment();
    void rowsHaveOneFixedHeight();
    void wholeRowsAreSelectedAndNothingIsEdited();
    void sortArrowComesAndGoes();
    void keysGoWithTheirRows();
    void checkBoxes();
    void onlyTheFirstColumnHasABox();
    void withoutCheckBoxesNothingCanBeChecked();
    void aRowIsCheckedBeforeItIsShown();
    void clearForgetsChecks();
    void aClickOnTheBoxChecks();
    void theSpaceBarChecks_data();
    void theSpaceBarChecks();
    void theSpaceBarChecksTheFirstRowWithoutACursor();
    void smallTextLeavesTheRest();
    void twips_data();
    void twips();
};

void tst_ResultList::rowsAreShownAtMostEveryFortyMilliseconds()
{
    ResultListModel model;
    model.SetColumns(columns());
    QCOMPARE(flushTimer(&model)->interval(), 40);
    QVERIFY(flushTimer(&model)->isSingleShot());
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QElapsedTimer time;
    time.start();
    qsizetype rows = 0;
    while (inserted.count() < 3) {
        // Two at a time: a turn of a busy machine may be as long as the pause.
        model.AddRow({QString::number(rows++)});
        model.AddRow({QString::number(rows++)});
        QTest::qWait(1);
    }
    // Three insertions of several rows each, and no sooner than three times the pause.
    QVERIFY(time.elapsed() >= 3 * 38);
    QVERIFY(rows >= 6);
}

void tst_ResultList::rowsOfOneTurnAreOneInsertion()
{
    ResultListModel model;
    model.SetColumns(columns());
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy flushed(&model, &ResultListModel::Flushed);
    for (int i = 0; i < 1000; ++i)
        model.AddRow({QString::number(i)});
    QCOMPARE(inserted.count(), 0);
    QTRY_COMPARE(inserted.count(), 1);
    QCOMPARE(inserted.first().at(1).toInt(), 0);
    QCOMPARE(inserted.first().at(2).toInt(), 999);
    QCOMPARE(flushed.count(), 1);
    QVERIFY(!flushTimer(&model)->isActive());
}

void tst_ResultList::countAndCellsKnowEveryRowAtOnce()
{
    ResultListModel model;
    model.SetColumns(columns());
    model.AddRow({u"SMITH"_s, u"02-2"_s, u"7"_s});
    QCOMPARE(model.Count(), 1);
    QCOMPARE(model.Cell(0, 1), u"02-2"_s);
    QCOMPARE(model.rowCount(), 0);
}

void tst_ResultList::flushShowsEverythingNow()
{
    ResultListModel model;
    model.SetColumns(columns());
    model.AddRow({u"SMITH"_s});
    model.Flush();
    QCOMPARE(model.rowCount(), 1);
    QVERIFY(!flushTimer(&model)->isActive());
}

void tst_ResultList::flushTellsEvenWithoutNewRows()
{
    ResultListModel model;
    QSignalSpy flushed(&model, &ResultListModel::Flushed);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.Flush();
    QCOMPARE(flushed.count(), 1);
    QCOMPARE(inserted.count(), 0);
}

void tst_ResultList::setCell()
{
    ResultListModel model;
    model.SetColumns(columns());
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.AddRow({u"SMITH"_s});
    model.SetCell(0, 2, u"late"_s);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(model.Cell(0, 2), u"late"_s);
    QCOMPARE(model.Cell(0, 1), QString());
    model.Flush();
    model.SetCell(0, 0, u"JONES"_s);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex(), model.index(0, 0));
    QCOMPARE(model.index(0, 0).data().toString(), u"JONES"_s);
}

void tst_ResultList::missingAndExcessCells()
{
    ResultListModel model;
    model.SetColumns(columns());
    model.AddRow({});
    model.AddRow({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    model.Flush();
    QCOMPARE(model.index(0, 2).data().toString(), QString());
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(model.Cell(1, 3), u"d"_s);
    QCOMPARE(model.Cell(1, 4), QString());
}

void tst_ResultList::cellsComeBackAsTheyWent_data()
{
    QTest::addColumn<QStringList>("cells");
    QTest::newRow("no cell") << QStringList();
    QTest::newRow("one empty cell") << QStringList{u""_s};
    QTest::newRow("empty cells between and behind") << QStringList{u"a"_s, u""_s, u"b"_s, u""_s};
    QTest::newRow("a NUL character") << QStringList{u"a"_s + QChar(u'\0') + u"b"_s, u"c"_s};
    QTest::newRow("above ASCII") << QStringList{u"MU\u00D1OZ \u20AC"_s, u"\u00FF\u00FE"_s, u"c"_s};
}

void tst_ResultList::cellsComeBackAsTheyWent()
{
    QFETCH(const QStringList, cells);
    ResultListModel model;
    model.AddRow(cells);
    QCOMPARE(model.Cells(0), cells);
    for (int column = 0; column < cells.size(); ++column)
        QCOMPARE(model.Cell(0, column), cells[column]);
    QCOMPARE(model.Cell(0, -1), QString());
    QCOMPARE(model.Cell(0, static_cast<int>(cells.size())), QString());
}

void tst_ResultList::clearForgetsWhatWasNotShownYet()
{
    ResultListModel model;
    model.SetColumns(columns());
    model.AddRow({u"a"_s});
    model.Flush();
    model.AddRow({u"b"_s});
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.Clear();
    QCOMPARE(model.Count(), 0);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!flushTimer(&model)->isActive());
    model.AddRow({u"c"_s});
    model.Flush();
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(model.index(0, 0).data().toString(), u"c"_s);
}

void tst_ResultList::modelKeepsTheRulesOfModels()
{
    ResultListModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetColumns(columns());
    for (int i = 0; i < 5; ++i)
        model.AddRow({u"a"_s, u"b"_s});
    model.Flush();
    model.SetCell(2, 1, u"x"_s);
    model.Clear();
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
}

void tst_ResultList::allByteValues()
{
    QByteArray bytes;
    for (int value = 0; value < 256; ++value)
        bytes.append(static_cast<char>(value));
    ResultListModel model;
    model.SetColumns(columns());
    model.AddRow({FromWindows1252(bytes)});
    model.Flush();
    QCOMPARE(ToWindows1252(model.index(0, 0).data().toString()), bytes);
}

void tst_ResultList::markupIsShownPlain()
{
    // As wide in ink as its characters are, the brackets among them.
    const auto picture = [](const QString &text) {
        ResultListView view;
        view.SetColumns(columns());
        view.List()->AddRow({text});
        view.List()->Flush();
        view.resize(500, 100);
        QImage image(500, 100, QImage::Format_RGB32);
        image.fill(Qt::white);
        view.render(&image);
        return image;
    };
    const QImage blank = picture({});
    const auto inkWidth = [&](const QString &text) {
        const QImage image = picture(text);
        int first = image.width();
        int last = -1;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == blank.pixel(x, y))
                    continue;
                first = std::min(first, x);
                last = std::max(last, x);
            }
        }
        return last - first + 1;
    };
    const QFontMetrics metrics(ResultListView().font());
    for (const QString &text : {u"<b>a</b>"_s, u"a<br>b"_s, u"&amp;"_s}) {
        const int advance = metrics.horizontalAdvance(text);
        const int width = inkWidth(text);
        // A glyph's ink ends a little before or behind its advance.
        QVERIFY2(std::abs(width - advance) <= 4,
                 qPrintable(u"%1: %2 for %3"_s.arg(text).arg(width).arg(advance)));
    }
    ResultListModel model;
    model.SetColumns(columns());
    model.AddRow({u"<b>a</b>"_s});
    model.Flush();
    QCOMPARE(model.index(0, 0).data(Qt::ToolTipRole), QVariant());
}

void tst_ResultList::tipOfACutCellIsPlainText()
{
    ResultListView view;
    view.SetColumns(columns());
    const QString longText = u"<img src=x> "_s.repeated(50);
    view.List()->AddRow({longText});
    view.List()->Flush();
    view.resize(500, 100);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QPoint where = view.visualRect(view.List()->index(0, 0)).center();
    QHelpEvent help(QEvent::ToolTip, where, view.viewport()->mapToGlobal(where));
    QCoreApplication::sendEvent(view.viewport(), &help);
    QCOMPARE(QToolTip::text(), u"<qt>"_s + longText.toHtmlEscaped());
    QToolTip::hideText();
}

void tst_ResultList::noteOfARowIsPlainText()
{
    ResultListView view;
    view.SetColumns(columns());
    view.List()->AddRow({u"SMITH"_s});
    view.List()->Flush();
    view.SetRowNote([](int) { return u"<b>Opened</b> &amp;"_s; });
    view.resize(500, 100);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QPoint where = view.visualRect(view.List()->index(0, 0)).center();
    QHelpEvent help(QEvent::ToolTip, where, view.viewport()->mapToGlobal(where));
    QCoreApplication::sendEvent(view.viewport(), &help);
    QCOMPARE(QToolTip::text(), u"<qt>&lt;b&gt;Opened&lt;/b&gt; &amp;amp;"_s);
    QToolTip::hideText();
}

void tst_ResultList::cellThatFitsHasNoTip()
{
    ResultListView view;
    view.SetColumns(columns());
    view.List()->AddRow({u"SMITH"_s});
    view.List()->Flush();
    view.resize(500, 100);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QToolTip::hideText();
    const QPoint where = view.visualRect(view.List()->index(0, 0)).center();
    QHelpEvent help(QEvent::ToolTip, where, view.viewport()->mapToGlobal(where));
    QCoreApplication::sendEvent(view.viewport(), &help);
    QTRY_COMPARE(QToolTip::text(), QString());
}

void tst_ResultList::widthsAreFixedAndInTwips()
{
    ResultListView view;
    view.SetColumns(columns());
    view.horizontalHeader()->setStretchLastSection(false);
    for (int column = 0; column < 3; ++column)
        view.SetColumnTwips(column, columns()[column].Width);
    QCOMPARE(view.columnWidth(0), 200);
    QCOMPARE(view.columnWidth(1), 100);
    QCOMPARE(view.columnWidth(2), 80);
    view.List()->AddRow({u"x"_s.repeated(500)});
    view.List()->Flush();
    QCOMPARE(view.columnWidth(0), 200);
    view.SetColumnTwips(0, 1200);
    QCOMPARE(view.columnWidth(0), 80);
}

void tst_ResultList::headersAndAlignment()
{
    ResultListModel model;
    model.SetColumns(columns());
    for (int column = 0; column < 3; ++column) {
        QCOMPARE(model.headerData(column, Qt::Horizontal).toString(), columns()[column].Header);
        QCOMPARE(
            model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>(),
            columns()[column].Alignment | Qt::AlignVCenter);
    }
    QCOMPARE(model.headerData(3, Qt::Horizontal), QVariant());
    QCOMPARE(model.headerData(-1, Qt::Horizontal), QVariant());
    QCOMPARE(model.headerData(0, Qt::Vertical), QVariant());
    model.AddRow({u"a"_s});
    model.Flush();
    QCOMPARE(model.index(0, 2).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
             Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(model.data({}), QVariant());
}

void tst_ResultList::rowsHaveOneFixedHeight()
{
    ResultListView view;
    view.SetColumns(columns());
    view.List()->AddRow({u"a"_s});
    view.List()->AddRow({u"a\nb\nc\nd"_s});
    view.List()->Flush();
    QCOMPARE(view.rowHeight(1), view.rowHeight(0));
    QVERIFY(!view.wordWrap());
}

void tst_ResultList::wholeRowsAreSelectedAndNothingIsEdited()
{
    ResultListView view;
    view.SetColumns(columns());
    view.List()->AddRow({u"a"_s, u"b"_s});
    view.List()->Flush();
    view.resize(500, 100);
    view.show();
    const QModelIndex cell = view.List()->index(0, 1);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(cell).center());
    QCOMPARE(view.selectionModel()->selectedRows().size(), 1);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(cell).center());
    QTest::keyClick(&view, Qt::Key_F2);
    QVERIFY(!view.indexWidget(cell));
    QVERIFY(!view.isPersistentEditorOpen(cell));
}

void tst_ResultList::sortArrowComesAndGoes()
{
    ResultListView view;
    view.SetColumns(columns());
    view.ShowHeaderIcon(1, Qt::DescendingOrder, true);
    QVERIFY(view.horizontalHeader()->isSortIndicatorShown());
    QCOMPARE(view.horizontalHeader()->sortIndicatorSection(), 1);
    QCOMPARE(view.horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    view.ShowHeaderIcon(1, Qt::DescendingOrder, false);
    QVERIFY(!view.horizontalHeader()->isSortIndicatorShown());
}

void tst_ResultList::keysGoWithTheirRows()
{
    ResultListModel model;
    model.AddRow({u"a"_s}, u"K1"_s);
    model.AddRow({u"b"_s});
    QCOMPARE(model.Key(0), u"K1"_s);
    QCOMPARE(model.Key(1), QString());
}

void tst_ResultList::checkBoxes()
{
    ResultListModel model;
    model.SetColumns({{u"A"_s, 1000}, {u"B"_s, 1000}});
    model.SetCheckBoxes(true);
    for (int i = 0; i < 4; ++i)
        model.AddRow({u"a"_s, u"b"_s});
    model.Flush();
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.SetChecked(2, true);
    QVERIFY(model.setData(model.index(0, 0), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(changed.size(), 2);
    QCOMPARE(model.CheckedRows(), (QList<int>{0, 2}));
    QCOMPARE(model.index(2, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QCOMPARE(model.index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QVERIFY(model.setData(model.index(2, 0), Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(model.CheckedRows(), QList<int>{0});
    // A cell that changes keeps its row's check.
    model.SetCell(0, 0, u">>a"_s);
    QVERIFY(model.IsChecked(0));
}

void tst_ResultList::onlyTheFirstColumnHasABox()
{
    ResultListModel model;
    model.SetColumns({{u"A"_s, 1000}, {u"B"_s, 1000}});
    model.SetCheckBoxes(true);
    model.AddRow({u"a"_s, u"b"_s});
    model.Flush();
    QVERIFY(model.index(0, 0).flags() & Qt::ItemIsUserCheckable);
    QVERIFY(!(model.index(0, 1).flags() & Qt::ItemIsUserCheckable));
    QVERIFY(!model.index(0, 1).data(Qt::CheckStateRole).isValid());
    QVERIFY(!model.setData(model.index(0, 1), Qt::Checked, Qt::CheckStateRole));
    QVERIFY(!model.setData(model.index(0, 0), u"x"_s, Qt::EditRole));
    QVERIFY(!model.setData({}, Qt::Checked, Qt::CheckStateRole));
    QVERIFY(model.CheckedRows().isEmpty());
    QCOMPARE(model.Cell(0, 0), u"a"_s);
    const QAbstractItemModelTester tester(&model);
}

void tst_ResultList::withoutCheckBoxesNothingCanBeChecked()
{
    ResultListModel model;
    model.SetColumns({{u"A"_s, 1000}});
    model.AddRow({u"a"_s});
    model.Flush();
    QVERIFY(!model.index(0, 0).data(Qt::CheckStateRole).isValid());
    QVERIFY(!(model.index(0, 0).flags() & Qt::ItemIsUserCheckable));
    QVERIFY(!model.setData(model.index(0, 0), Qt::Checked, Qt::CheckStateRole));
}

void tst_ResultList::aRowIsCheckedBeforeItIsShown()
{
    ResultListModel model;
    model.SetColumns({{u"A"_s, 1000}});
    model.SetCheckBoxes(true);
    model.AddRow({u"a"_s});
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.SetChecked(0, true);
    QCOMPARE(changed.size(), 0);
    QCOMPARE(model.CheckedRows(), QList<int>{0});
}

void tst_ResultList::clearForgetsChecks()
{
    ResultListModel model;
    model.SetCheckBoxes(true);
    model.AddRow({u"a"_s});
    model.SetChecked(0, true);
    model.Clear();
    model.AddRow({u"b"_s});
    QVERIFY(!model.IsChecked(0));
}

namespace {
void fillChecked(ResultListView &view)
{
    view.SetColumns({{u"A"_s, 2000}, {u"B"_s, 2000}});
    view.List()->SetCheckBoxes(true);
    for (int i = 0; i < 4; ++i)
        view.List()->AddRow({u"a"_s, u"b"_s});
    view.List()->Flush();
    view.resize(400, 200);
    view.show();
}
} // namespace

void tst_ResultList::aClickOnTheBoxChecks()
{
    ResultListView view;
    fillChecked(view);
    const auto click = [&](int row, int column, int left) {
        const QRect cell = view.visualRect(view.List()->index(row, column));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          QPoint(cell.left() + left, cell.center().y()));
    };
    click(1, 0, 10);
    QCOMPARE(view.List()->CheckedRows(), QList<int>{1});
    click(2, 0, 60);
    click(2, 1, 10);
    QCOMPARE(view.List()->CheckedRows(), QList<int>{1});
    click(1, 0, 10);
    QVERIFY(view.List()->CheckedRows().isEmpty());
}

void tst_ResultList::theSpaceBarChecks_data()
{
    QTest::addColumn<int>("column"); // of the cursor
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<int>("presses");
    QTest::addColumn<QList<int>>("checked");
    QTest::newRow("first column") << 0 << QList<int>{1} << 1 << QList<int>{1};
    QTest::newRow("another column") << 1 << QList<int>{1} << 1 << QList<int>{1};
    QTest::newRow("twice") << 0 << QList<int>{1} << 2 << QList<int>{};
    QTest::newRow("all that are selected") << 1 << QList<int>{1, 3} << 1 << QList<int>{1, 3};
    QTest::newRow("none is selected") << 0 << QList<int>{} << 1 << QList<int>{1};
    QTest::newRow("others are selected") << 0 << QList<int>{2, 3} << 1 << QList<int>{1};
}

void tst_ResultList::theSpaceBarChecks()
{
    QFETCH(int, column);
    QFETCH(QList<int>, selected);
    QFETCH(int, presses);
    ResultListView view;
    fillChecked(view);
    view.selectionModel()->setCurrentIndex(view.List()->index(1, column),
                                           QItemSelectionModel::NoUpdate);
    for (const int row : selected)
        view.selectionModel()->select(view.List()->index(row, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    for (int i = 0; i < presses; ++i)
        QTest::keyClick(&view, Qt::Key_Space);
    QTEST(view.List()->CheckedRows(), "checked");
}

void tst_ResultList::theSpaceBarChecksTheFirstRowWithoutACursor()
{
    ResultListView view;
    QTest::keyClick(&view, Qt::Key_Space);
    fillChecked(view);
    QTest::keyClick(&view, Qt::Key_Space);
    QCOMPARE(view.List()->CheckedRows(), QList<int>{0});
    ResultListView empty;
    empty.List()->SetCheckBoxes(true);
    QTest::keyClick(&empty, Qt::Key_Space);
    QVERIFY(!empty.currentIndex().isValid());
}

void tst_ResultList::smallTextLeavesTheRest()
{
    ResultListView view;
    const qreal before = view.font().pointSizeF();
    const qreal header = view.horizontalHeader()->font().pointSizeF();
    const int height = view.verticalHeader()->defaultSectionSize();
    view.UseSmallText();
    QVERIFY(view.font().pointSizeF() < before);
    QCOMPARE(view.horizontalHeader()->font().pointSizeF(), header);
    QCOMPARE(view.verticalHeader()->defaultSectionSize(), height);
}

void tst_ResultList::twips_data()
{
    QTest::addColumn<int>("twips");
    QTest::addColumn<int>("pixels");
    for (const auto &[twips, pixels] :
         {std::pair{0, 0}, std::pair{7, 0}, std::pair{8, 1}, std::pair{15, 1}, std::pair{22, 1},
          std::pair{23, 2}, std::pair{1440, 96}, std::pair{5370, 358}, std::pair{-15, -1},
          std::pair{-7, 0}, std::pair{-8, -1}})
        QTest::addRow("%d", twips) << twips << pixels;
}

void tst_ResultList::twips()
{
    QFETCH(int, twips);
    QFETCH(int, pixels);
    QCOMPARE(PixelsFromTwips(twips), pixels);
    QCOMPARE(PixelsFromTwips(TwipsFromPixels(pixels)), pixels);
}

HALVANE_TEST(tst_ResultList)
#include "tst_ResultList.moc"
