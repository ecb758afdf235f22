#include "support/HalvaneTest.h"
#include "support/Ticks.h"
#include "tables/ColumnRoom.h"
#include "tables/ColumnWidths.h"
#include "tables/GridUser.h"
#include "tables/ListUser.h"

#include <memory>
#include <numeric>

// The room beside the columns goes to those whose text is cut, while no width is the user's.

namespace {
const QString longPlace = u"WA Superior Ct King County"_s;
const QString longText = u"Tort - Motor Vehicle"_s;
const QString kindOfList = u"RoomOfAList"_s;

/// The columns of a search in the Superior Courts, narrower in proportion.
const QList<ListColumn> listColumns{{u"Name"_s, 1800},
                                    {u"Description"_s, 1200},
                                    {u"Location"_s, 1200},
                                    {u"Secret"_s, 30},
                                    {u"Role"_s, 900}};
const QList<int> tableWidths{120, 80, 80, 2};
} // namespace

class tst_ColumnRoom : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { user.reset(); }

    void withRoom_data();
    void withRoom();

    void nothingIsCutWhileThereIsRoom();
    void withoutRoomTheTableDecides();
    void noColumnIsWiderThanItNeeds();
    void theLastColumnKeepsWhatItNeeds();
    void aTextWithoutEndLeavesTheOthersWhole();
    void rowsThatArriveAreGivenRoom();
    void onceAFlushAndNotPerRow();
    void aCellThatGrowsIsGivenRoom();
    void aNewUsualWidthKeepsTheRoom();
    void theWindowGetsWiderAndNarrower();
    void anotherFont();
    void aRowThatIsMarkedIsGivenRoomForItsBoldText();
    void aMarkedRowIsWiderThanALongerOne();
    void aListThatIsShownWithItsRows();
    void theRowsOfAnotherTable();
    void aDragEndsIt();
    void nothingMovesDuringADrag();
    void aPressWithoutADragIsNoWidth();
    void theUsersStoredWidthStaysAndTheOthersShare();
    void resetGivesTheRoomAgain();
    void aDoubleClickFitsARowThatIsFarBelow();
    void aDoubleClickOnAWholeColumnMakesItTheUsers();
    void manyRowsAreLookedAtBySlices();
    void aWideCharacterOutsideOfAscii();

    void aGridWithRoomKeepsItsTextsInOneLine();
    void aGridThatIsFilledStaysAsItsTableSays();
    void aGridThatGrowsIsGivenRoom();
    void aGridWithMarkedRowsIsGivenRoomForTheirBoldText();
    void aGridFollowsItsWindowAndItsFont();
    void aGridWithAWidthOfTheUsers();
    void aDoubleClickInAGridIsNoWiderThanTheGrid();

private:
    void show(int width, const QList<QStringList> &rows)
    {
        user->Window.resize(width, 400);
        user->Show();
        add(rows);
    }
    void add(const QList<QStringList> &rows) const
    {
        for (const QStringList &row : rows)
            user->List->List()->AddRow(row);
        user->List->List()->Flush();
    }
    QList<int> widths() const
    {
        QList<int> all;
        for (int column = 0; column < tableWidths.size(); ++column)
            all.append(user->List->columnWidth(column));
        return all;
    }
    /// What the view itself wants for the cell.
    int needed(int row, int column) const
    {
        return user->List->sizeHintForIndex(user->List->List()->index(row, column)).width();
    }
    bool isCut(int row, int column) const
    {
        return user->List->columnWidth(column) < needed(row, column);
    }
    QPoint edge(int column) const
    {
        const QHeaderView *header = user->List->horizontalHeader();
        return {header->sectionViewportPosition(column) + header->sectionSize(column) - 1,
                header->height() / 2};
    }
    QWidget *header() const { return user->List->horizontalHeader()->viewport(); }
    void press(int column) const { QTest::mousePress(header(), Qt::LeftButton, {}, edge(column)); }
    void release(QPoint where) const { QTest::mouseRelease(header(), Qt::LeftButton, {}, where); }
    void drag(int column, int pixels) const
    {
        const QPoint from = edge(column);
        press(column);
        QTest::mouseMove(header(), from + QPoint(pixels / 2, 0));
        QTest::mouseMove(header(), from + QPoint(pixels, 0));
        release(from + QPoint(pixels, 0));
    }
    void doubleClick(int column) const
    {
        const QPoint where = edge(column);
        QTest::mouseDClick(header(), Qt::LeftButton, {}, where);
        release(where);
    }
    bool showsScrollBar() const { return user->List->horizontalScrollBar()->isVisible(); }

    std::unique_ptr<ListUser> user;
};

void tst_ColumnRoom::init()
{
    SaveUserStoreValue(u"ColumnWidths"_s, kindOfList, QString());
    GridUser::ForgetWidths();
    user = std::make_unique<ListUser>();
    user->List->SetColumns(ListLayout{kindOfList, listColumns});
}

void tst_ColumnRoom::withRoom_data()
{
    QTest::addColumn<QList<int>>("widths");
    QTest::addColumn<QList<int>>("needs");
    QTest::addColumn<int>("room");
    QTest::addColumn<QList<int>>("given");
    using Pixels = QList<int>;
    QTest::addRow("none") << Pixels{} << Pixels{} << 100 << Pixels{};
    QTest::addRow("nothing is cut") << Pixels{50, 50} << Pixels{20, 50} << 100 << Pixels{50, 50};
    QTest::addRow("room for all") << Pixels{50, 50} << Pixels{80, 70} << 100 << Pixels{80, 70};
    QTest::addRow("just room for all") << Pixels{50, 50} << Pixels{80, 70} << 50 << Pixels{80, 70};
    QTest::addRow("the least lack first")
        << Pixels{50, 50, 50} << Pixels{90, 60, 70} << 35 << Pixels{55, 60, 70};
    QTest::addRow("the first of equal ones")
        << Pixels{50, 50} << Pixels{80, 80} << 40 << Pixels{80, 60};
    QTest::addRow("one without end")
        << Pixels{50, 50} << Pixels{90'000, 70} << 100 << Pixels{130, 70};
    QTest::addRow("no room") << Pixels{50, 50} << Pixels{80, 70} << 0 << Pixels{50, 50};
    QTest::addRow("less than none") << Pixels{50, 50} << Pixels{80, 70} << -30 << Pixels{50, 50};
}

void tst_ColumnRoom::withRoom()
{
    QFETCH(const QList<int>, widths);
    QFETCH(const QList<int>, needs);
    QFETCH(const int, room);
    QList<ColumnNeed> all;
    for (qsizetype i = 0; i < widths.size(); ++i)
        all.append({widths[i], needs[i]});
    QTEST(WithRoom(all, room), "given");
}

void tst_ColumnRoom::nothingIsCutWhileThereIsRoom()
{
    show(800, {{u"SMITH, JOHN Q"_s, longText, longPlace, u"SECRET"_s, u"Plaintiff"_s}});
    for (const int column : {0, 1, 2, 4})
        QVERIFY2(!isCut(0, column), qPrintable(QString::number(column)));
    QVERIFY(user->List->columnWidth(1) > tableWidths[1]);
    QCOMPARE(user->List->columnWidth(3), tableWidths[3]);
    QVERIFY(!user->List->Tools()->Widths()->ChangedByUser());
    QVERIFY(!showsScrollBar());
}

void tst_ColumnRoom::withoutRoomTheTableDecides()
{
    show(300, {{u"SMITH, JOHN Q"_s, longText, longPlace, u"SECRET"_s, u"Plaintiff"_s}});
    QCOMPARE(widths(), tableWidths);
    QVERIFY(isCut(0, 2));
}

void tst_ColumnRoom::noColumnIsWiderThanItNeeds()
{
    show(800, {{u"A"_s, u"B"_s, longPlace, QString(), u"C"_s}});
    QCOMPARE(widths(), QList<int>({tableWidths[0], tableWidths[1], needed(0, 2), tableWidths[3]}));
}

void tst_ColumnRoom::theLastColumnKeepsWhatItNeeds()
{
    const QString role = u"Respondent and Defendant"_s;
    show(520, {{u"A"_s, u"B"_s, QString(80, u'W'), QString(), role}});
    QVERIFY(user->List->columnWidth(2) > tableWidths[2]);
    QVERIFY(isCut(0, 2));
    QVERIFY(!isCut(0, 4));
    QVERIFY(!showsScrollBar());
}

void tst_ColumnRoom::aTextWithoutEndLeavesTheOthersWhole()
{
    show(700, {{u"A"_s, QString(50'000, u'7'), longPlace, QString(), u"Plaintiff"_s}});
    QVERIFY(!isCut(0, 2));
    QVERIFY(!isCut(0, 4));
    QVERIFY(user->List->columnWidth(1) > tableWidths[1]);
    QVERIFY(!showsScrollBar());
}

void tst_ColumnRoom::rowsThatArriveAreGivenRoom()
{
    show(800, {{u"A"_s, u"B"_s, u"C"_s, QString(), u"D"_s}});
    QCOMPARE(widths(), tableWidths);
    add({{u"A"_s, u"B"_s, longPlace, QString(), u"D"_s}});
    QVERIFY(!isCut(1, 2));
    // A shorter one after it takes nothing back.
    add({{u"A"_s, longText, u"C"_s, QString(), u"D"_s}});
    QVERIFY(!isCut(1, 2) && !isCut(2, 1));
}

void tst_ColumnRoom::onceAFlushAndNotPerRow()
{
    show(900, {});
    int changes = 0;
    connect(user->List->horizontalHeader(), &QHeaderView::sectionResized, user->List,
            [&changes](int column) { changes += column == 2 ? 1 : 0; });
    for (int row = 0; row < 26; ++row)
        user->List->List()->AddRow({u"A"_s, u"B"_s, longPlace.left(row + 1)});
    QCOMPARE(changes, 0);
    user->List->List()->Flush();
    QCOMPARE(changes, 1);
    // Nor for rows that need no more than those before.
    add({{u"A"_s, u"B"_s, longPlace}});
    QCOMPARE(changes, 1);
}

void tst_ColumnRoom::aCellThatGrowsIsGivenRoom()
{
    show(800, {{u"A"_s, u"B"_s, u"C"_s, QString(), u"D"_s}});
    user->List->List()->SetCell(0, 1, longText);
    QTRY_VERIFY(!isCut(0, 1));
}

void tst_ColumnRoom::aNewUsualWidthKeepsTheRoom()
{
    show(800, {{u"A"_s, longText, longPlace, QString(), u"D"_s}});
    const QList<int> before = widths();
    // As each row of some courts does, whether it changes anything or not.
    for (int row = 0; row < 3; ++row) {
        user->List->SetColumnTwips(2, 1200);
        QCOMPARE(widths(), before);
    }
    user->List->SetColumnTwips(2, 6000);
    QCOMPARE(user->List->columnWidth(2), 400);
    QTRY_VERIFY(!isCut(0, 1));
}

void tst_ColumnRoom::theWindowGetsWiderAndNarrower()
{
    show(300, {{u"SMITH, JOHN Q"_s, longText, longPlace, QString(), u"Plaintiff"_s}});
    QCOMPARE(widths(), tableWidths);
    user->Window.resize(800, 400);
    QTRY_VERIFY(!isCut(0, 1) && !isCut(0, 2));
    user->Window.resize(300, 400);
    QTRY_COMPARE(widths(), tableWidths);
}

void tst_ColumnRoom::anotherFont()
{
    show(1200, {{u"A"_s, longText, longPlace, QString(), u"D"_s}});
    const int before = user->List->columnWidth(2);
    QFont large = user->List->font();
    large.setPointSizeF(1.5 * large.pointSizeF());
    user->List->setFont(large);
    QVERIFY(user->List->columnWidth(2) > before);
    QVERIFY(!isCut(0, 1) && !isCut(0, 2));
}

void tst_ColumnRoom::aRowThatIsMarkedIsGivenRoomForItsBoldText()
{
    show(1000, {{u"A"_s, longText, longPlace, QString(), u"D"_s}});
    const int before = needed(0, 2);
    user->List->List()->Rows()->SetMarks({{0}, QDate(2026, 11, 2)});
    QVERIFY(needed(0, 2) > before);
    QTRY_VERIFY(!isCut(0, 1) && !isCut(0, 2));
}

/// It has fewer letters, which are wider.
void tst_ColumnRoom::aMarkedRowIsWiderThanALongerOne()
{
    add({{u"A"_s, u"B"_s, longPlace}, {u"A"_s, u"B"_s, longPlace + u'.'}});
    user->List->List()->Rows()->SetMarks({{0}, QDate(2026, 11, 2)});
    show(1000, {});
    QVERIFY(needed(0, 2) > needed(1, 2));
    QTRY_VERIFY(!isCut(0, 2));
}

void tst_ColumnRoom::aListThatIsShownWithItsRows()
{
    add({{u"A"_s, longText, longPlace, QString(), u"D"_s}});
    // Nobody sees it yet.
    QCOMPARE(widths(), tableWidths);
    show(800, {});
    QVERIFY(!isCut(0, 1) && !isCut(0, 2));
}

void tst_ColumnRoom::theRowsOfAnotherTable()
{
    show(800, {{u"A"_s, longText, u"C"_s, QString(), u"D"_s}});
    user->List->SetColumns(
        ListLayout{kindOfList, {{u"One"_s, 600}, {u"Two"_s, 600}, {u"Three"_s, 600}}});
    QVERIFY(!isCut(0, 1));
    QCOMPARE(user->List->columnWidth(0), 40);
    user->List->List()->Clear();
    user->List->SetColumns(ListLayout{kindOfList, listColumns});
    QCOMPARE(widths(), tableWidths);
    add({{u"A"_s, u"B"_s, longPlace, QString(), u"D"_s}});
    QCOMPARE(widths(), QList<int>({tableWidths[0], tableWidths[1], needed(0, 2), tableWidths[3]}));
}

void tst_ColumnRoom::aDragEndsIt()
{
    show(800, {{u"A"_s, longText, longPlace, QString(), u"D"_s}});
    QList<int> expected = widths();
    drag(0, 40);
    // The others stay where the user has seen them.
    expected[0] += 40;
    QCOMPARE(widths(), expected);
    add({{u"A"_s, QString(60, u'B'), longPlace, QString(), u"D"_s}});
    user->Window.resize(1100, 400);
    Ticks(2);
    QCOMPARE(widths(), expected);
}

void tst_ColumnRoom::nothingMovesDuringADrag()
{
    show(800, {{u"A"_s, u"B"_s, longPlace, QString(), u"D"_s}});
    const QList<int> before = widths();
    press(0);
    add({{u"A"_s, longText, longPlace, QString(), u"D"_s}});
    user->Window.resize(900, 400);
    Ticks(2);
    QCOMPARE(widths(), before);
    // Let go where it was: no width is the user's, and what came meanwhile has its room.
    release(edge(0));
    QVERIFY(!isCut(1, 1));
}

void tst_ColumnRoom::aPressWithoutADragIsNoWidth()
{
    show(800, {});
    press(0);
    release(edge(0));
    add({{u"A"_s, u"B"_s, longPlace, QString(), u"D"_s}});
    QVERIFY(!isCut(0, 2));
    QCOMPARE(UserStoreValue(u"ColumnWidths"_s, kindOfList, {}), QString());
}

void tst_ColumnRoom::theUsersStoredWidthStaysAndTheOthersShare()
{
    SaveUserStoreValue(u"ColumnWidths"_s, kindOfList, u"Location=1350"_s);
    user->List->SetColumns(ListLayout{kindOfList, listColumns});
    show(800, {{u"A"_s, longText, longPlace, QString(), u"D"_s}});
    QCOMPARE(user->List->columnWidth(2), 90);
    QVERIFY(isCut(0, 2));
    QVERIFY(!isCut(0, 1));
    // Nothing that was given by the program is stored as the user's.
    QCOMPARE(UserStoreValue(u"ColumnWidths"_s, kindOfList, {}), u"Location=1350"_s);
}

void tst_ColumnRoom::resetGivesTheRoomAgain()
{
    show(800, {{u"A"_s, longText, longPlace, QString(), u"D"_s}});
    const QList<int> before = widths();
    drag(2, -60);
    QVERIFY(isCut(0, 2));
    user->Item(u"mnuListResetWidths"_s)->trigger();
    QCOMPARE(widths(), before);
    QVERIFY(!user->List->Tools()->Widths()->ChangedByUser());
}

void tst_ColumnRoom::aDoubleClickFitsARowThatIsFarBelow()
{
    show(800, {});
    for (int row = 0; row < 5000; ++row)
        user->List->List()->AddRow({u"A"_s, u"B"_s, u"C"_s, QString(), u"D"_s});
    add({{QString(60, u'm'), QString(60, u'm'), longPlace, QString(), QString(30, u'm')}});
    QVERIFY(isCut(5000, 0));
    doubleClick(0);
    QCOMPARE(user->List->columnWidth(0), needed(5000, 0));
    QVERIFY(user->List->Tools()->Widths()->IsUsers(0));
    // No wider than the list.
    add({{QString(50'000, u'm')}});
    doubleClick(0);
    QCOMPARE(user->List->columnWidth(0), user->List->viewport()->width());
}

void tst_ColumnRoom::aDoubleClickOnAWholeColumnMakesItTheUsers()
{
    show(800, {{u"A"_s, u"B"_s, longPlace, QString(), u"D"_s}});
    const int fitted = user->List->columnWidth(2);
    doubleClick(2);
    QCOMPARE(user->List->columnWidth(2), fitted);
    QVERIFY(user->List->Tools()->Widths()->IsUsers(2));
    QVERIFY(!user->List->Tools()->Widths()->IsUsers(0));
}

void tst_ColumnRoom::manyRowsAreLookedAtBySlices()
{
    constexpr int rows = 100'000;
    for (int row = 0; row < rows; ++row)
        user->List->List()->AddRow({u"A"_s, u"B"_s, row == rows - 1 ? longPlace : u"C"_s});
    show(800, {});
    // The last row is not reached at once, and does not have to be asked for either.
    QCOMPARE(user->List->columnWidth(2), tableWidths[2]);
    QTRY_VERIFY(!isCut(rows - 1, 2));
}

void tst_ColumnRoom::aWideCharacterOutsideOfAscii()
{
    const QString dashes(20, QChar(0x2014));
    show(800, {{u"A"_s, dashes, longPlace, QString(), u"D"_s}});
    QVERIFY(!isCut(0, 1) && !isCut(0, 2));
}

void tst_ColumnRoom::aGridWithRoomKeepsItsTextsInOneLine()
{
    GridUser grid;
    grid.Show();
    grid.Grid->Show(TableOf({{u"Date"_s, 20}, {u"Entry"_s, 20}, {u"By"_s, 10}},
                            {{u"01/02/2003"_s, longPlace + u" - "_s + longText, u"K"_s}}));
    const QList<int> widths = grid.Widths();
    QCOMPARE(widths[0], 120);
    QCOMPARE(widths[2], 60);
    QVERIFY(widths[1] > 120);
    QVERIFY(std::accumulate(widths.begin(), widths.end(), 0) <= 600);
    QVERIFY(grid.Grid->rowHeight(0) < 2 * grid.Grid->fontMetrics().height());
}

void tst_ColumnRoom::aGridThatIsFilledStaysAsItsTableSays()
{
    GridUser grid;
    grid.Show();
    grid.Grid->Show(TableOf({{u"Entry"_s, 20}, {u"By"_s, 80}}, {{longPlace + longText, u"K"_s}}));
    QCOMPARE(grid.Widths(), QList<int>({120, 480}));
}

void tst_ColumnRoom::aGridWithMarkedRowsIsGivenRoomForTheirBoldText()
{
    GridUser grid;
    grid.Show();
    grid.Grid->Show(TableOf({{u"Date"_s, 20}, {u"Entry"_s, 20}, {u"By"_s, 10}},
                            {{u"01/02/2003"_s, longPlace + u" - "_s + longText, u"K"_s}}));
    const int before = grid.Widths().at(1);
    grid.Grid->MarkRows({{0}, QDate(2026, 11, 2)});
    QTRY_VERIFY(grid.Widths().at(1) > before);
    QTRY_VERIFY(grid.Grid->rowHeight(0) < 2 * grid.Grid->fontMetrics().height());
}

void tst_ColumnRoom::aGridThatGrowsIsGivenRoom()
{
    GridUser grid;
    grid.Show();
    GridTable table = TableOf({{u"Entry"_s, 20}, {u"By"_s, 20}}, {{u"A"_s, u"B"_s}});
    grid.Grid->Show(table);
    QCOMPARE(grid.Widths(), QList<int>({120, 120}));
    table.Rows.append({longPlace, u"B"_s});
    grid.Grid->Grow(table);
    QTRY_VERIFY(grid.Widths()[0] > 120);
    QTRY_VERIFY(grid.AllMeasured());
    QVERIFY(grid.Grid->rowHeight(1) < 2 * grid.Grid->fontMetrics().height());
}

void tst_ColumnRoom::aGridFollowsItsWindowAndItsFont()
{
    GridUser grid;
    grid.Show();
    grid.Grid->Show(TableOf({{u"Entry"_s, 20}, {u"By"_s, 20}}, {{longPlace, u"B"_s}}));
    const int whole = grid.Widths()[0];
    grid.Window.resize(160, 400);
    QTRY_VERIFY(grid.Widths()[0] < whole);
    grid.Window.resize(600, 400);
    QTRY_COMPARE(grid.Widths()[0], whole);
    QFont large = grid.Grid->font();
    large.setPointSizeF(1.5 * large.pointSizeF());
    grid.Grid->setFont(large);
    QTRY_VERIFY(grid.Widths()[0] > whole);
}

void tst_ColumnRoom::aGridWithAWidthOfTheUsers()
{
    GridUser grid;
    grid.Show();
    const GridTable table =
        TableOf({{u"Entry"_s, 20}, {u"By"_s, 20}}, {{longPlace, u"JUDGE PRO TEMPORE"_s}});
    grid.Grid->Show(table);
    const QList<int> before = grid.Widths();
    QVERIFY(before[0] > 120);
    grid.Drag(0, -60);
    Ticks(1);
    QCOMPARE(grid.Widths(), QList<int>({before[0] - 60, before[1]}));
    grid.Grid->Show(table);
    QCOMPARE(grid.Widths(), QList<int>({before[0] - 60, before[1]}));
    // What it could use is left to the others.
    grid.Grid->Show(TableOf(table.Columns, {{longPlace, QString(80, u'm')}}));
    QCOMPARE(grid.Widths(), QList<int>({before[0] - 60, 600 - before[0] + 60}));
    grid.Grid->Show(table);
    grid.Grid->findChild<QAction *>(u"mnuListResetWidths"_s)->trigger();
    QTRY_COMPARE(grid.Widths(), before);
}

void tst_ColumnRoom::aDoubleClickInAGridIsNoWiderThanTheGrid()
{
    GridUser grid;
    grid.Show();
    grid.Grid->Show(TableOf({{u"Entry"_s, 20}, {u"By"_s, 80}}, {{QString(5000, u'm'), u"B"_s}}));
    QWidget *header = grid.Grid->horizontalHeader()->viewport();
    const QPoint edge = grid.Edge(0);
    QTest::mouseDClick(header, Qt::LeftButton, {}, edge);
    QTest::mouseRelease(header, Qt::LeftButton, {}, edge);
    QCOMPARE(grid.Widths()[0], grid.Grid->viewport()->width());
}

HALVANE_TEST(tst_ColumnRoom)
#include "tst_ColumnRoom.moc"
