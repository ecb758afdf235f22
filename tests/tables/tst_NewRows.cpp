#include "support/HalvaneTest.h"
#include "tables/GridUser.h"
#include "tables/ListUser.h"
#include "tables/RowFilter.h"

#include <QAccessible>
#include <QSignalSpy>

#include <memory>

// What a table shows of rows that are marked as new.

namespace {
const QDate lastLook(2026, 11, 2);

GridTable docket()
{
    return TableOf({{u"Date"_s, 20}, {u"Entry"_s, 80}}, {{u"01/02/2003"_s, u"COMPLAINT"_s},
                                                         {u"01/03/2003"_s, u"SUMMONS"_s},
                                                         {u"01/04/2003"_s, u"ANSWER"_s},
                                                         {u"01/05/2003"_s, u"NOTICE"_s}});
}

QString accessibleText(const QTableView *table, int row, int column)
{
    return table->model()->index(row, column).data(Qt::AccessibleTextRole).toString();
}
bool isBold(const QTableView *table, int row)
{
    return table->model()->index(row, 0).data(Qt::FontRole).value<QFont>().bold();
}
QString headerText(const QTableView *table, int row, int role)
{
    return table->model()->headerData(row, Qt::Vertical, role).toString();
}
QLabel *lineOf(const TableUser &user)
{
    return user.Window.findChild<QLabel *>(u"lblNew"_s);
}
bool isDotted(const QTableView *table, int row)
{
    QHeaderView *dots = table->verticalHeader();
    const QRect place(0, dots->sectionViewportPosition(row), dots->width(), dots->sectionSize(row));
    const QImage picture = dots->viewport()->grab(place).toImage();
    const QRgb dot = dots->palette().color(QPalette::Highlight).rgb();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == dot)
                return true;
        }
    }
    return false;
}

/// Texts of every length: some fit into their lines as they are, and in bold take one more.
GridTable textsOfEveryLength()
{
    GridTable table = TableOf({{u"Entry"_s, 100}}, {});
    for (int length = 100; length < 400; ++length)
        table.Rows.append(
            {u"Notice of hearing filed by the clerk of the court "_s.repeated(9).left(length)});
    return table;
}

QSet<int> everyRow(const GridTable &table)
{
    QSet<int> rows;
    for (int row = 0; row < table.Rows.size(); ++row)
        rows.insert(row);
    return rows;
}

/// The first row whose bold text needs more than it has; nothing when there is none.
QString cutRow(const FlexGrid *grid)
{
    QFont bold = grid->font();
    bold.setBold(true);
    for (int row = 0; row < grid->model()->rowCount(); ++row) {
        const QRect cell(0, 0, grid->columnWidth(0) - 8, 1'000'000);
        const QString text = grid->Cell(row + 1, 0).trimmed();
        const int needed = QFontMetrics(bold).boundingRect(cell, Qt::TextWordWrap, text).height();
        if (grid->rowHeight(row) < needed)
            return u"row %1 is %2 high and needs %3"_s.arg(row)
                .arg(grid->rowHeight(row))
                .arg(needed);
    }
    return {};
}
} // namespace

class tst_NewRows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void withoutMarksNothingIsOther();
    void marksInAGrid();
    void lineOfAGrid_data();
    void lineOfAGrid();
    void theDotIsPainted();
    void theFirstColumnThatIsSeenSaysIt();
    void boldTextIsNotCut();
    void boldTextIsNotCutInAGridSeenLater();
    void marksStayWhileTheGridGrows();
    void anotherTableHasNone();
    void copyingIsTheSame();

    void marksInAList();
    void marksGoWithTheirRows();
    void rowsThatComeHaveNone();
    void aListThatIsClearedHasNone();
    void theLineGoesWithItsList();

    void onlyNewRows();
    void onlyNewRowsAndFind();
    void onlyNewRowsAreChosen();
    void withoutMarksAllComeBack();
    void marksThatChangeUnderIt();
    void aDoubleClickOnTheDot();

private:
    void showDocket(const QSet<int> &newRows = {})
    {
        grid->Show();
        grid->Grid->Show(docket());
        grid->Grid->MarkRows({newRows, lastLook});
    }
    void fillList(const QSet<int> &newRows = {})
    {
        list->Show();
        list->Fill({u"ADAMS"_s, u"BAKER"_s, u"CLARK"_s, u"DAVIS"_s});
        list->List->List()->Rows()->SetMarks({newRows, lastLook});
    }
    void showOnlyNew() const
    {
        list->AskForMenu(0);
        list->Menu()->hide();
        list->Item(u"mnuListOnlyNew"_s)->trigger();
    }

    std::unique_ptr<GridUser> grid;
    std::unique_ptr<ListUser> list;
};

void tst_NewRows::init()
{
    GridUser::ForgetWidths();
    grid = std::make_unique<GridUser>();
    list = std::make_unique<ListUser>();
}

void tst_NewRows::cleanup()
{
    grid.reset();
    list.reset();
}

void tst_NewRows::withoutMarksNothingIsOther()
{
    showDocket();
    QVERIFY(!grid->Grid->verticalHeader()->isVisible());
    QVERIFY(!lineOf(*grid)->isVisible());
    QCOMPARE(grid->Grid->findChild<QMenu *>(u"mnuList"_s)->actions().size(), 6);
    QVERIFY(!isBold(grid->Grid, 0));
    QCOMPARE(accessibleText(grid->Grid, 0, 0), QString());
}

void tst_NewRows::marksInAGrid()
{
    showDocket({1, 3});
    QVERIFY(grid->Grid->verticalHeader()->isVisible());
    QVERIFY(!isBold(grid->Grid, 0));
    QVERIFY(isBold(grid->Grid, 1));
    QVERIFY(isBold(grid->Grid, 3));
    QCOMPARE(accessibleText(grid->Grid, 1, 0), u"New. 01/03/2003"_s);
    QCOMPARE(accessibleText(grid->Grid, 1, 1), QString());
    QCOMPARE(headerText(grid->Grid, 0, Qt::ToolTipRole), QString());
    QCOMPARE(headerText(grid->Grid, 1, Qt::ToolTipRole), u"New since 11/02/2026"_s);
    QCOMPARE(headerText(grid->Grid, 1, Qt::AccessibleTextRole), u"New since 11/02/2026"_s);
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(grid->Grid);
    QCOMPARE(table->tableInterface()->cellAt(1, 0)->text(QAccessible::Name), u"New. 01/03/2003"_s);
    QCOMPARE(table->tableInterface()->cellAt(0, 0)->text(QAccessible::Name), u"01/02/2003"_s);
}

void tst_NewRows::lineOfAGrid_data()
{
    QTest::addColumn<QSet<int>>("marked");
    QTest::addColumn<QString>("line");
    QTest::addRow("one") << QSet<int>{2} << u"1 entry since 11/02/2026"_s;
    QTest::addRow("two") << QSet<int>{0, 2} << u"2 entries since 11/02/2026"_s;
}

void tst_NewRows::lineOfAGrid()
{
    QFETCH(const QSet<int>, marked);
    QFETCH(const QString, line);
    showDocket(marked);
    QTRY_VERIFY(lineOf(*grid)->isVisible());
    QCOMPARE(lineOf(*grid)->text(), line);
    QTRY_VERIFY(lineOf(*grid)->geometry().bottom() < grid->Grid->geometry().top());
    grid->Grid->MarkRows({});
    QVERIFY(!lineOf(*grid)->isVisible());
    QVERIFY(!grid->Grid->verticalHeader()->isVisible());
}

void tst_NewRows::theDotIsPainted()
{
    showDocket({1});
    QVERIFY(isDotted(grid->Grid, 1));
    QVERIFY(!isDotted(grid->Grid, 0));
    QVERIFY(!isDotted(grid->Grid, 2));
}

void tst_NewRows::theFirstColumnThatIsSeenSaysIt()
{
    grid->Show();
    grid->Grid->Show(TableOf({{u"Id"_s, 0}, {u"Entry"_s, 100}}, {{u"7"_s, u"SUMMONS"_s}}));
    grid->Grid->MarkRows({{0}, lastLook});
    QCOMPARE(accessibleText(grid->Grid, 0, 0), QString());
    QCOMPARE(accessibleText(grid->Grid, 0, 1), u"New. SUMMONS"_s);
}

void tst_NewRows::boldTextIsNotCut()
{
    const GridTable table = textsOfEveryLength();
    grid->Show();
    grid->Grid->Show(table);
    QTRY_VERIFY(grid->AllMeasured());
    grid->Grid->MarkRows({everyRow(table), lastLook});
    QTRY_VERIFY(grid->AllMeasured());
    QCOMPARE(cutRow(grid->Grid), QString());
}

void tst_NewRows::boldTextIsNotCutInAGridSeenLater()
{
    const GridTable table = textsOfEveryLength();
    grid->Show();
    grid->Grid->Show(table);
    QTRY_VERIFY(grid->AllMeasured());
    grid->Grid->hide();
    grid->Grid->MarkRows({everyRow(table), lastLook});
    grid->Grid->show();
    QTRY_VERIFY(grid->AllMeasured());
    QCOMPARE(cutRow(grid->Grid), QString());
}

void tst_NewRows::marksStayWhileTheGridGrows()
{
    showDocket({1});
    GridTable grown = docket();
    grown.Rows.append({u"01/06/2003"_s, u"ORDER"_s});
    grid->Grid->Grow(grown);
    QVERIFY(isBold(grid->Grid, 1));
    QVERIFY(!isBold(grid->Grid, 4));
    QCOMPARE(lineOf(*grid)->text(), u"1 entry since 11/02/2026"_s);
    QVERIFY(grid->Grid->verticalHeader()->isVisible());
}

void tst_NewRows::anotherTableHasNone()
{
    showDocket({1});
    grid->Grid->Show(docket());
    QVERIFY(!isBold(grid->Grid, 1));
    QVERIFY(!lineOf(*grid)->isVisible());
    QVERIFY(!grid->Grid->verticalHeader()->isVisible());
}

void tst_NewRows::copyingIsTheSame()
{
    showDocket({0, 1});
    grid->Grid->selectAll();
    grid->Grid->Tools()->Copy(true);
    QCOMPARE(QApplication::clipboard()->text(),
             u"Date\tEntry\n01/02/2003\tCOMPLAINT\n01/03/2003\tSUMMONS\n01/04/2003\tANSWER\n"
             "01/05/2003\tNOTICE"_s);
}

void tst_NewRows::marksInAList()
{
    fillList({2});
    QVERIFY(list->List->verticalHeader()->isVisible());
    QVERIFY(isDotted(list->List, 2));
    QVERIFY(!isDotted(list->List, 1));
    QVERIFY(isBold(list->List, 2));
    QCOMPARE(accessibleText(list->List, 2, 0), u"New. CLARK"_s);
    QCOMPARE(lineOf(*list)->text(), u"1 row is new since your last such search on 11/02/2026"_s);
    QVERIFY(lineOf(*list)->isVisible());
}

void tst_NewRows::marksGoWithTheirRows()
{
    fillList({0});
    list->List->SortRows({u"d"_s, u"c"_s, u"b"_s, u"a"_s}, Qt::AscendingOrder);
    QCOMPARE(list->List->List()->Cell(3, 0), u"ADAMS"_s);
    QVERIFY(isBold(list->List, 3));
    QVERIFY(!isBold(list->List, 0));
    QVERIFY(isDotted(list->List, 3));
    QVERIFY(!isDotted(list->List, 0));
}

void tst_NewRows::rowsThatComeHaveNone()
{
    fillList({0});
    list->Fill({u"EVANS"_s});
    QVERIFY(!isBold(list->List, 4));
    QVERIFY(isBold(list->List, 0));
}

void tst_NewRows::aListThatIsClearedHasNone()
{
    fillList({0});
    list->List->List()->Clear();
    QVERIFY(!lineOf(*list)->isVisible());
    QVERIFY(!list->List->verticalHeader()->isVisible());
}

void tst_NewRows::theLineGoesWithItsList()
{
    fillList({0});
    list->List->hide();
    QVERIFY(!lineOf(*list)->isVisible());
    list->List->show();
    QVERIFY(lineOf(*list)->isVisible());
}

void tst_NewRows::onlyNewRows()
{
    fillList({1, 3});
    showOnlyNew();
    const qsizetype find = list->Menu()->actions().indexOf(list->Item(u"mnuListFind"_s));
    QCOMPARE(list->Menu()->actions().value(find + 1), list->Item(u"mnuListOnlyNew"_s));
    QCOMPARE(list->InSight(), QStringList({u"BAKER"_s, u"DAVIS"_s}));
    QVERIFY(list->Item(u"mnuListOnlyNew"_s)->isChecked());
    QVERIFY(lineOf(*list)->text().contains(u"the other rows are not shown"));
    showOnlyNew();
    QCOMPARE(list->InSight().size(), 4);
    QVERIFY(!lineOf(*list)->text().contains(u"not shown"));
}

void tst_NewRows::onlyNewRowsAndFind()
{
    fillList({1, 2, 3});
    list->Other->setFocus();
    list->Find(u"A"_s);
    QCOMPARE(list->InSight().size(), 4);
    list->Field()->setText(u"AVI"_s);
    showOnlyNew();
    QCOMPARE(list->InSight(), QStringList(u"DAVIS"_s));
    list->Field()->setText(u"A"_s);
    QCOMPARE(list->InSight(), QStringList({u"BAKER"_s, u"CLARK"_s, u"DAVIS"_s}));
    QCOMPARE(list->Count(), u"3 of 4 shown"_s);
    QTest::keyClick(list->Field(), Qt::Key_Escape);
    QCOMPARE(list->InSight(), QStringList({u"BAKER"_s, u"CLARK"_s, u"DAVIS"_s}));
}

void tst_NewRows::onlyNewRowsAreChosen()
{
    fillList({1, 3});
    list->List->selectAll();
    showOnlyNew();
    QCOMPARE(list->List->Tools()->Filter()->SelectedRows(), QList<int>({1, 3}));
    list->List->selectAll();
    list->List->Tools()->Copy();
    QCOMPARE(QApplication::clipboard()->text(), u"BAKER\t02-2-2\nDAVIS\t02-2-4"_s);
    showOnlyNew();
    QCOMPARE(list->List->Tools()->Filter()->SelectedRows(), QList<int>({1, 3}));
}

void tst_NewRows::withoutMarksAllComeBack()
{
    fillList({1});
    showOnlyNew();
    list->List->List()->Rows()->SetMarks({});
    QCOMPARE(list->InSight().size(), 4);
    QVERIFY(!list->Menu()->actions().contains(list->Item(u"mnuListOnlyNew"_s)));
}

void tst_NewRows::marksThatChangeUnderIt()
{
    fillList({1});
    showOnlyNew();
    list->List->List()->Rows()->SetMarks({{0, 2}, lastLook});
    QCOMPARE(list->InSight(), QStringList({u"ADAMS"_s, u"CLARK"_s}));
    list->Fill({u"EVANS"_s});
    QCOMPARE(list->InSight(), QStringList({u"ADAMS"_s, u"CLARK"_s}));
}

void tst_NewRows::aDoubleClickOnTheDot()
{
    showDocket({1});
    QSignalSpy activated(grid->Grid, &FlexGrid::RowActivated);
    const QHeaderView *dots = grid->Grid->verticalHeader();
    const QPoint place(dots->width() / 2, dots->sectionViewportPosition(1) + 3);
    QTest::mouseDClick(dots->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated.first().first().toInt(), 2);
}

HALVANE_TEST(tst_NewRows)
#include "tst_NewRows.moc"
