#include "support/HalvaneTest.h"
#include "tables/GridUser.h"
#include "tables/RowFilter.h"

#include <QAccessible>
#include <QClipboard>
#include <QImage>
#include <QMenu>
#include <QSignalSpy>

#include <memory>

// What a grid shows, and what can be done with it.

namespace {
/// The columns of the picture in which something is written, as first and last.
struct Ink
{
    int First = -1;
    int Last = -1;
};

Ink inkOf(const QImage &picture)
{
    Ink ink;
    const QRgb ground = picture.pixel(0, 0);
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (picture.pixel(x, y) == ground)
                continue;
            ink.First = ink.First < 0 ? x : ink.First;
            ink.Last = x;
            break;
        }
    }
    return ink;
}
} // namespace

class tst_FlexGrid : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { user.reset(); }

    void cellsAreCountedFromTheHeaders();
    void cellsWithoutHeadersAreCountedFromTheFirstRow();
    void aRowOfFewerCells();
    void aRowOfMoreCells();
    void cellsOutside_data();
    void cellsOutside();
    void anotherTableTakesThePlaceOfTheFirst();
    void clear();
    void aTableWithoutColumns();
    void aTableThatGrows();
    void aTableThatHasNotGrown();
    void growingLeavesTheUserWhereHeIs();
    void growingOutOfSight_data();
    void growingOutOfSight();
    void rowsThatComeAreFoundOrHidden();

    void textIsShownAsItStands_data();
    void textIsShownAsItStands();
    void textStaysInItsCell();
    void alignment_data();
    void alignment();
    void alignmentIsKept();
    void selectedTextCanBeRead();

    void noHeaderIsHidden();
    void anEmptyHeaderIsQuiet();
    void aHeaderWithOneTitleIsNot();
    void aLongTitleWraps();
    void aClickOnAHeaderSelectsNothing();

    void activating_data();
    void activating();
    void enterHeldDownActivatesOnce();
    void nothingToActivate();
    void wholeRowsAreSelectedAndNothingIsEdited();

    void screenReader();
    void copying();
    void copyingWithHeaders();
    void copyingWithoutAnyHeaders_data();
    void copyingWithoutAnyHeaders();
    void finding();
    void findStaysInForceForAnotherTable();

private:
    void show(const GridTable &table)
    {
        user->Show();
        user->Grid->Show(table);
    }
    QImage pictureOf(int row, int column) const
    {
        QWidget *port = user->Grid->viewport();
        const QRect cell = user->Grid->visualRect(user->Grid->model()->index(row, column));
        return port->grab(cell).toImage();
    }
    QString clipboardAfter(const QString &action)
    {
        QApplication::clipboard()->clear();
        user->Grid->findChild<QAction *>(action)->trigger();
        return QApplication::clipboard()->text();
    }

    std::unique_ptr<GridUser> user;
    const GridTable names{{{u"Name"_s, 60}, {u"Role"_s, 40}},
                          {{u"ADAMS"_s, u"Plaintiff"_s}, {u"BAKER"_s, u"Defendant"_s}},
                          true};
    const GridTable bare{{{QString(), 60}, {QString(), 40}}, {{u"a"_s, u"b"_s}, {u"c"_s}}, false};
};

void tst_FlexGrid::init()
{
    GridUser::ForgetWidths();
    user = std::make_unique<GridUser>();
}

void tst_FlexGrid::cellsAreCountedFromTheHeaders()
{
    user->Grid->Show(names);
    QCOMPARE(user->Grid->Rows(), 3);
    QCOMPARE(user->Grid->Cols(), 2);
    QCOMPARE(user->Grid->Cell(0, 1), u"Role"_s);
    QCOMPARE(user->Grid->Cell(1, 0), u"ADAMS"_s);
    QCOMPARE(user->Grid->Cell(2, 1), u"Defendant"_s);
    QCOMPARE(user->Grid->Table(), names);
}

void tst_FlexGrid::cellsWithoutHeadersAreCountedFromTheFirstRow()
{
    user->Grid->Show(bare);
    QCOMPARE(user->Grid->Rows(), 2);
    QCOMPARE(user->Grid->Cell(0, 0), u"a"_s);
    QCOMPARE(user->Grid->Cell(1, 0), u"c"_s);
}

void tst_FlexGrid::aRowOfFewerCells()
{
    user->Grid->Show(bare);
    QCOMPARE(user->Grid->Cell(1, 1), QString());
    QCOMPARE(user->Grid->model()->index(1, 1).data().toString(), QString());
}

void tst_FlexGrid::aRowOfMoreCells()
{
    GridTable table = names;
    table.Rows[0].append(u"surplus"_s);
    user->Grid->Show(table);
    QCOMPARE(user->Grid->Cols(), 2);
    QCOMPARE(user->Grid->Cell(1, 2), QString());
}

void tst_FlexGrid::cellsOutside_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addRow("above") << -1 << 0;
    QTest::addRow("below") << 3 << 0;
    QTest::addRow("left") << 1 << -1;
    QTest::addRow("right") << 1 << 2;
    QTest::addRow("left of the headers") << 0 << -1;
    QTest::addRow("right of the headers") << 0 << 2;
}

void tst_FlexGrid::cellsOutside()
{
    QFETCH(const int, row);
    QFETCH(const int, column);
    user->Grid->Show(names);
    QCOMPARE(user->Grid->Cell(row, column), QString());
}

void tst_FlexGrid::anotherTableTakesThePlaceOfTheFirst()
{
    show(names);
    user->Click(1);
    const QSignalSpy resets(user->Grid->model(), &QAbstractItemModel::modelReset);
    user->Grid->Show(bare);
    QCOMPARE(resets.count(), 1);
    QCOMPARE(user->Grid->Cell(0, 0), u"a"_s);
    QVERIFY(!user->Grid->selectionModel()->hasSelection());
}

void tst_FlexGrid::clear()
{
    show(names);
    user->Grid->Show({});
    QCOMPARE(user->Grid->Rows(), 0);
    QCOMPARE(user->Grid->Cols(), 0);
    QCOMPARE(user->Grid->Cell(0, 0), QString());
    QCOMPARE(user->Grid->Table(), GridTable());
}

void tst_FlexGrid::aTableWithoutColumns()
{
    show(TableOf({}, {{u"a"_s}}));
    QCOMPARE(user->Grid->Cols(), 0);
    QCOMPARE(user->Grid->Rows(), 1);
    QVERIFY(!user->Grid->horizontalHeader()->isVisible());
}

void tst_FlexGrid::textIsShownAsItStands_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("markup") << u"<b>WW</b>"_s;
    QTest::addRow("line break") << u"W<br>W<br>W"_s;
    QTest::addRow("entity") << u"W&nbsp;&lt;W"_s;
    QTest::addRow("ampersand") << u"&W && W"_s;
}

void tst_FlexGrid::textIsShownAsItStands()
{
    QFETCH(const QString, text);
    show(TableOf({{u"A"_s, 100}}, {{text}, {u"W"_s}}));
    const int width = user->Grid->fontMetrics().horizontalAdvance(text);
    const Ink ink = inkOf(pictureOf(0, 0));
    QVERIFY2(std::abs(ink.Last - ink.First - width) <= 4,
             qPrintable(u"%1 to %2, not %3 wide"_s.arg(ink.First).arg(ink.Last).arg(width)));
    QCOMPARE(user->Grid->rowHeight(0), user->Grid->rowHeight(1));
}

void tst_FlexGrid::textStaysInItsCell()
{
    show(TableOf({{u"A"_s, 30}, {u"B"_s, 70}}, {{QString(100, u'W'), QString()}}));
    QCOMPARE(inkOf(pictureOf(0, 1)).First, -1);
    const Ink ink = inkOf(pictureOf(0, 0));
    QVERIFY(ink.First > 0 && ink.Last > 150);
    QVERIFY(ink.Last < user->Grid->columnWidth(0) - 1);
}

void tst_FlexGrid::alignment_data()
{
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<int>("part"); // of the cell in which the text stands
    QTest::addRow("unset") << Qt::Alignment() << 0;
    QTest::addRow("left") << Qt::Alignment(Qt::AlignLeft | Qt::AlignTop) << 0;
    QTest::addRow("centre") << Qt::Alignment(Qt::AlignHCenter | Qt::AlignTop) << 1;
    QTest::addRow("right") << Qt::Alignment(Qt::AlignRight | Qt::AlignTop) << 2;
}

void tst_FlexGrid::alignment()
{
    QFETCH(const Qt::Alignment, alignment);
    QFETCH(const int, part);
    if (alignment != Qt::Alignment())
        user->Grid->SetColumnAlignment(0, alignment);
    show(TableOf({{u"A"_s, 50}, {u"B"_s, 50}}, {{u"WW"_s, u"one\ntwo\nthree"_s}}));
    const Ink ink = inkOf(pictureOf(0, 0));
    QCOMPARE(ink.First / 100, part);
    QCOMPARE(ink.Last / 100, part);
    // At the top of a row that is three lines high.
    const QImage cell = pictureOf(0, 0);
    QCOMPARE(inkOf(cell.copy(0, cell.height() / 2, cell.width(), cell.height() / 2)).First, -1);
}

void tst_FlexGrid::alignmentIsKept()
{
    user->Grid->SetColumnAlignment(1, Qt::AlignRight | Qt::AlignTop);
    show(names);
    user->Grid->Show({});
    user->Grid->Show(bare);
    QVERIFY(inkOf(pictureOf(0, 1)).First > 200);
    user->Grid->SetColumnAlignment(1, Qt::AlignLeft | Qt::AlignTop);
    QVERIFY(inkOf(pictureOf(0, 1)).First < 40);
}

void tst_FlexGrid::selectedTextCanBeRead()
{
    QPalette colours = user->Grid->palette();
    colours.setColor(QPalette::Highlight, Qt::black);
    colours.setColor(QPalette::HighlightedText, Qt::yellow);
    user->Grid->setPalette(colours);
    show(TableOf({{u"A"_s, 50}, {u"B"_s, 50}}, {{u"x"_s, u"WWW"_s}}));
    user->Click(0);
    const QImage cell = pictureOf(0, 1);
    QCOMPARE(cell.pixelColor(100, 3), QColor(Qt::black));
    bool found = false;
    for (int x = 0; x < cell.width() && !found; ++x) {
        for (int y = 0; y < cell.height() && !found; ++y)
            found = cell.pixelColor(x, y) == QColor(Qt::yellow);
    }
    QVERIFY(found);
}

void tst_FlexGrid::noHeaderIsHidden()
{
    show(bare);
    QVERIFY(!user->Grid->horizontalHeader()->isVisible());
    user->Grid->Show(names);
    QVERIFY(user->Grid->horizontalHeader()->isVisible());
    user->Grid->Show({});
    QVERIFY(!user->Grid->horizontalHeader()->isVisible());
}

void tst_FlexGrid::anEmptyHeaderIsQuiet()
{
    show(TableOf({{QString(), 100}}, {{u"No Names Were Found For This Case."_s}}));
    QHeaderView *header = user->Grid->horizontalHeader();
    QVERIFY(header->isVisible());
    QVERIFY(header->height() >= header->fontMetrics().height());
    const QImage picture = header->grab().toImage();
    QCOMPARE(inkOf(picture).First, -1);
    QCOMPARE(picture.pixelColor(5, 5), user->Grid->palette().color(QPalette::Base));
}

void tst_FlexGrid::aHeaderWithOneTitleIsNot()
{
    show(TableOf({{QString(), 50}, {u"Role"_s, 50}}, {{u"a"_s, u"b"_s}}));
    const QImage picture = user->Grid->horizontalHeader()->grab().toImage();
    QVERIFY(inkOf(picture).First >= 0);
}

void tst_FlexGrid::aLongTitleWraps()
{
    show(names);
    const int oneLine = user->Grid->horizontalHeader()->height();
    user->Grid->Show(TableOf({{u"Title or Description of the Document"_s, 15}, {u"Role"_s, 85}},
                             {{u"a"_s, u"b"_s}}));
    QTRY_VERIFY(user->Grid->horizontalHeader()->height() > 2 * oneLine);
    // The rows begin below it.
    QCOMPARE(user->Grid->viewport()->geometry().top(), user->Grid->horizontalHeader()->height());
    user->Window.resize(3000, 400);
    QTRY_COMPARE(user->Grid->horizontalHeader()->height(), oneLine);
}

void tst_FlexGrid::aClickOnAHeaderSelectsNothing()
{
    show(names);
    user->Click(1);
    QTest::mouseClick(user->Grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {50, 8});
    QCOMPARE(user->Grid->selectionModel()->selectedRows().size(), 1);
}

void tst_FlexGrid::activating_data()
{
    QTest::addColumn<GridTable>("table");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QList<int>>("expected"); // for the second row
    QTest::addRow("double click") << names << u"double"_s << QList<int>{2};
    QTest::addRow("Enter") << names << u"enter"_s << QList<int>{2};
    QTest::addRow("Enter of the number pad") << names << u"pad"_s << QList<int>{2};
    QTest::addRow("double click without headers") << bare << u"double"_s << QList<int>{1};
    QTest::addRow("Enter without headers") << bare << u"enter"_s << QList<int>{1};
    QTest::addRow("click") << names << u"click"_s << QList<int>{};
    QTest::addRow("right button") << names << u"right"_s << QList<int>{};
    QTest::addRow("space bar") << names << u"space"_s << QList<int>{};
}

void tst_FlexGrid::activating()
{
    QFETCH(const GridTable, table);
    QFETCH(const QString, how);
    show(table);
    QList<int> heard;
    connect(user->Grid, &FlexGrid::RowActivated, this, [&heard](int row) { heard.append(row); });
    user->Click(1);
    if (how == u"double"_s)
        user->DoubleClick(1);
    else if (how == u"right"_s)
        user->DoubleClick(1, Qt::RightButton);
    else if (how == u"enter"_s)
        QTest::keyClick(user->Grid, Qt::Key_Return);
    else if (how == u"pad"_s)
        QTest::keyClick(user->Grid, Qt::Key_Enter, Qt::KeypadModifier);
    else if (how == u"space"_s)
        QTest::keyClick(user->Grid, Qt::Key_Space);
    QTEST(heard, "expected");
}

void tst_FlexGrid::enterHeldDownActivatesOnce()
{
    show(names);
    user->Click(0);
    const QSignalSpy activated(user->Grid, &FlexGrid::RowActivated);
    for (const bool again : {false, true, true}) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, again);
        QCoreApplication::sendEvent(user->Grid, &key);
    }
    QCOMPARE(activated.count(), 1);
}

void tst_FlexGrid::nothingToActivate()
{
    show(names);
    const QSignalSpy activated(user->Grid, &FlexGrid::RowActivated);
    QTest::keyClick(user->Grid, Qt::Key_Return);
    const QPoint below(50, user->Grid->viewport()->height() - 5);
    QTest::mouseDClick(user->Grid->viewport(), Qt::LeftButton, {}, below);
    QCOMPARE(activated.count(), 0);
}

void tst_FlexGrid::wholeRowsAreSelectedAndNothingIsEdited()
{
    show(names);
    user->Click(1);
    QVERIFY(user->Grid->selectionModel()->isRowSelected(1));
    user->DoubleClick(1);
    QTest::keyClick(user->Grid, Qt::Key_F2);
    QTest::keyClick(user->Grid, Qt::Key_A);
    QVERIFY(!user->Grid->viewport()->findChild<QWidget *>());
    QCOMPARE(user->Grid->Table(), names);
    QVERIFY(user->Grid->alternatingRowColors());
}

void tst_FlexGrid::screenReader()
{
    show(names);
    QAccessibleInterface *grid = QAccessible::queryAccessibleInterface(user->Grid);
    QCOMPARE(grid->text(QAccessible::Name), u"Details"_s);
    QCOMPARE(grid->text(QAccessible::Description), u"2 rows"_s);
    QCOMPARE(grid->tableInterface()->rowCount(), 2);
    QCOMPARE(grid->tableInterface()->cellAt(1, 0)->text(QAccessible::Name), u"BAKER"_s);
    user->Grid->Show(TableOf({{QString(), 100}}, {{u"No Names Were Found For This Case."_s}}));
    QCOMPARE(grid->text(QAccessible::Description), u"1 row"_s);
    user->Grid->setAccessibleName(u"Names"_s);
    user->Grid->Show({});
    QCOMPARE(grid->text(QAccessible::Name), u"Names"_s);
    QCOMPARE(grid->text(QAccessible::Description), u"0 rows"_s);
}

void tst_FlexGrid::copying()
{
    show(names);
    user->Click(1);
    QTest::keySequence(user->Grid, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"BAKER\tDefendant"_s);
}

void tst_FlexGrid::copyingWithHeaders()
{
    show(names);
    user->Click(0);
    QCOMPARE(clipboardAfter(u"mnuListCopyHeaders"_s), u"Name\tRole\nADAMS\tPlaintiff"_s);
}

void tst_FlexGrid::copyingWithoutAnyHeaders_data()
{
    QTest::addColumn<bool>("hasHeader");
    QTest::addRow("hidden") << false;
    QTest::addRow("empty") << true;
}

void tst_FlexGrid::copyingWithoutAnyHeaders()
{
    QFETCH(const bool, hasHeader);
    GridTable table = bare;
    table.HasHeader = hasHeader;
    show(table);
    user->Click(0);
    QCOMPARE(clipboardAfter(u"mnuListCopyHeaders"_s), u"a\tb"_s);
}

void tst_FlexGrid::finding()
{
    show(names);
    QTest::keySequence(user->Grid, QKeySequence::Find);
    QTest::keyClicks(QApplication::focusWidget(), u"defen"_s);
    QVERIFY(user->Grid->isRowHidden(0));
    QVERIFY(!user->Grid->isRowHidden(1));
    // Rows are counted as before.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    const QSignalSpy activated(user->Grid, &FlexGrid::RowActivated);
    QTest::keyClick(user->Grid, Qt::Key_Return);
    QCOMPARE(activated.value(0).value(0).toInt(), 2);
}

void tst_FlexGrid::findStaysInForceForAnotherTable()
{
    show(names);
    QTest::keySequence(user->Grid, QKeySequence::Find);
    QTest::keyClicks(QApplication::focusWidget(), u"x"_s);
    user->Grid->Show(TableOf({{u"A"_s, 100}}, {{u"a"_s}, {u"x"_s}, {u"c"_s}}));
    QVERIFY(user->Grid->isRowHidden(0));
    QVERIFY(!user->Grid->isRowHidden(1));
    QVERIFY(user->Grid->isRowHidden(2));
}

void tst_FlexGrid::aTableThatGrows()
{
    GridTable table = DocketOf(2);
    show(table);
    const QSignalSpy resets(user->Grid->model(), &QAbstractItemModel::modelReset);
    table = DocketOf(5);
    table.RowData = {4, 5, 6, 7, 8};
    user->Grid->Grow(table);
    QCOMPARE(user->Grid->Rows(), 6);
    QCOMPARE(user->Grid->Table(), table);
    QCOMPARE(user->Grid->Cell(5, 1), table.Rows[4][1]);
    QCOMPARE(user->Grid->accessibleDescription(), u"5 rows"_s);
    QVERIFY(resets.isEmpty());
    QTRY_VERIFY(user->AllMeasured());
    for (int row = 0; row < 5; ++row)
        QCOMPARE(user->Misfit(row), QString());
}

void tst_FlexGrid::aTableThatHasNotGrown()
{
    show(DocketOf(3));
    user->Grid->Grow(DocketOf(3));
    QCOMPARE(user->Grid->Rows(), 4);
    user->Grid->Grow(DocketOf(2));
    QCOMPARE(user->Grid->Table(), DocketOf(3));
}

void tst_FlexGrid::growingLeavesTheUserWhereHeIs()
{
    show(DocketOf(100));
    QTRY_VERIFY(user->AllMeasured());
    user->Click(2);
    user->Grid->verticalScrollBar()->setValue(300);
    const int top = user->Grid->rowAt(0);
    const int place = user->Grid->rowViewportPosition(top);
    user->Grid->Grow(DocketOf(200));
    QTRY_VERIFY(user->AllMeasured());
    QCOMPARE(user->Grid->rowAt(0), top);
    QCOMPARE(user->Grid->rowViewportPosition(top), place);
    QCOMPARE(user->Grid->Tools()->Filter()->SelectedRows(), QList<int>{2});
    QCOMPARE(user->Grid->currentIndex().row(), 2);
}

void tst_FlexGrid::growingOutOfSight_data()
{
    QTest::addColumn<bool>("shownBefore");
    QTest::newRow("before it was ever seen") << false;
    QTest::newRow("while another tab is in sight") << true;
}

void tst_FlexGrid::growingOutOfSight()
{
    QFETCH(bool, shownBefore);
    user->Grid->Show(DocketOf(3));
    if (shownBefore) {
        user->Show();
        QTRY_VERIFY(user->AllMeasured());
        user->Grid->hide();
    }
    user->Grid->Grow(DocketOf(40));
    QCOMPARE(user->Grid->Rows(), 41);
    user->Grid->show();
    user->Show();
    QTRY_VERIFY(user->AllMeasured());
    for (int row = 0; row < 40; ++row)
        QCOMPARE(user->Misfit(row), QString());
}

void tst_FlexGrid::rowsThatComeAreFoundOrHidden()
{
    const QList<GridColumn> columns{{u"A"_s, 50}, {u"B"_s, 50}};
    show(TableOf(columns, {{u"order"_s, u"1"_s}, {u"answer"_s, u"2"_s}}));
    user->Grid->Tools()->Filter()->SetText(u"order"_s);
    user->Grid->Grow(TableOf(columns, {{u"order"_s, u"1"_s},
                                       {u"answer"_s, u"2"_s},
                                       {u"motion"_s, u"3"_s},
                                       {u"order"_s, u"4"_s}}));
    QCOMPARE(user->Grid->Tools()->Filter()->ShownRows(), (QList<int>{0, 3}));
}

HALVANE_TEST(tst_FlexGrid)
#include "tst_FlexGrid.moc"
