#include "courts/DiscisCourts.h"
#include "namesearch/DistrictSearch.h"
#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"

#include <QPushButton>
#include <QTest>

// Sorting a list of results by clicks on its headers, in the windows themselves.

namespace {
/// The cells of a column, top to bottom.
QString columnOf(const ResultListView *list, int column)
{
    QStringList cells;
    for (int row = 0; row < list->List()->Count(); ++row)
        cells.append(list->List()->Cell(row, column));
    return cells.join(u' ');
}

QString courtRow(const QString &name, const QString &number, const QString &date,
                 const QString &rest = u"Civil~King~Role"_s)
{
    return name + u'~' + number + u'~' + date + u'~' + rest + u'~';
}
} // namespace

class tst_ResultSorting : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachColumnBothWays_data();
    void eachColumnBothWays();
    void eachDistrictColumnBothWays_data();
    void eachDistrictColumnBothWays();
    void aDateColumnTurnsTheOrderThatTheListHas();
    void anUnparsableDateStaysAsTextAmongTheDates();
    void archivedAndOpenedNumbersStandBesideTheirTwins();
    void negativeAndZeroLedNumbers();
    void theArrowAndTheNameFollowTheFirstSixColumns_data();
    void theArrowAndTheNameFollowTheFirstSixColumns();
    void newRowsStandBelowSortedOnes();
    void selectionAndCurrentRowSurvive();
    void theNoteOfTooManyResultsCanBeClicked();
    void anEmptyListCanBeClicked();
    void datesOfBirthOfNames();
    void eachWindowHasItsOwnFlag();

private:
    frmNameSearchResults *finished(const QStringList &rows);
};

frmNameSearchResults *tst_ResultSorting::finished(const QStringList &rows)
{
    court->Expect(RequestLine()).Reply(rows + QStringList{u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    if (!desk->Finish(window))
        qFatal("the search does not end");
    return window;
}

void tst_ResultSorting::eachColumnBothWays_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("Participant Name") << 0 << u"c B a"_s << u"a B c"_s;
    QTest::newRow("Case Number") << 1 << u"a B c"_s << u"c B a"_s;
    QTest::newRow("Date Filed") << 2 << u"B c a"_s << u"a c B"_s;
    QTest::newRow("Description") << 3 << u"B a c"_s << u"c a B"_s;
    QTest::newRow("Location") << 4 << u"c a B"_s << u"B a c"_s;
    QTest::newRow("Role") << 5 << u"a c B"_s << u"B c a"_s;
}

void tst_ResultSorting::eachColumnBothWays()
{
    QFETCH(int, column);
    const frmNameSearchResults *window =
        finished({u"B~99-2-00001-1~02/01/2003~Zoning~Adams~Aide~"_s,
                  u"a~00-2-00001-1~12/31/1999~probate~King~Widow~"_s,
                  u"c~98-2-00001-1~01/02/2002~Civil~yakima~heir~"_s});
    const ResultListView *list = ListOf(window);
    QCOMPARE(columnOf(list, 0), u"B a c"_s);
    ClickHeader(list, column);
    QTEST(columnOf(list, 0), "first");
    ClickHeader(list, column);
    QTEST(columnOf(list, 0), "second");
    ClickHeader(list, column);
    QTEST(columnOf(list, 0), "first");
}

void tst_ResultSorting::eachDistrictColumnBothWays_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    for (const Which which : {Which::Civil, Which::NonCivil}) {
        const auto row = [&](int column, const QString &first, const QString &second) {
            QTest::addRow("%s %d", which == Which::Civil ? "civil" : "non-civil", column)
                << which << column << first << second;
        };
        row(0, u"c B a"_s, u"a B c"_s);
        row(1, u"a B c"_s, u"c B a"_s);
        row(2, u"B c a"_s, u"a c B"_s);
        row(3, u"B a c"_s, u"c a B"_s);
        row(4, u"c a B"_s, u"B a c"_s);
        row(5, u"a c B"_s, u"B c a"_s);
        row(6, u"c B a"_s, u"a B c"_s);
        row(7, u"B c a"_s, u"a c B"_s);
    }
}

void tst_ResultSorting::eachDistrictColumnBothWays()
{
    QFETCH(Which, which);
    QFETCH(int, column);
    court->Expect(DistrictLine())
        .Reply({u"B~99~SED~Zillah~AA~AA~BB~02/01/2003~"_s,
                u"a~0100~BED~Pasco~BB~CC~AA~12/31/1999~"_s, u"c~9~otd~Kent~cc~bb~CC~01/02/2002~"_s,
                u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(which), {DistrictLine()});
    window->resize(1200, 500);
    const ResultListView *list = ListOf(window);
    ClickHeader(list, column);
    QTEST(columnOf(list, 0), "first");
    ClickHeader(list, column);
    QTEST(columnOf(list, 0), "second");
}

void tst_ResultSorting::aDateColumnTurnsTheOrderThatTheListHas()
{
    const frmNameSearchResults *window = finished(
        {courtRow(u"A"_s, u"1"_s, u"01/01/2001"_s), courtRow(u"B"_s, u"2"_s, u"01/01/2002"_s)});
    const ResultListView *list = ListOf(window);
    ClickHeader(list, 0);
    QCOMPARE(columnOf(list, 0), u"B A"_s);
    QCOMPARE(ArrowOf(list), u"0v"_s);
    ClickHeader(list, 2);
    QCOMPARE(columnOf(list, 0), u"A B"_s);
    QCOMPARE(ArrowOf(list), u"2"_s);
    ClickHeader(list, 1);
    QCOMPARE(columnOf(list, 0), u"B A"_s);
    QCOMPARE(ArrowOf(list), u"1v"_s);
    // The fourth click on a header clears the window's flag, whatever the list's order was.
    ClickHeader(list, 0);
    QCOMPARE(columnOf(list, 0), u"A B"_s);
    QCOMPARE(ArrowOf(list), u"0"_s);
    // One click on a date turns the flag, too.
    ClickHeader(list, 2);
    ClickHeader(list, 0);
    QCOMPARE(ArrowOf(list), u"0"_s);
}

void tst_ResultSorting::anUnparsableDateStaysAsTextAmongTheDates()
{
    const frmNameSearchResults *window =
        finished({courtRow(u"A"_s, u"1"_s, u"Unknown"_s), courtRow(u"B"_s, u"2"_s, u"12/31/1999"_s),
                  courtRow(u"C"_s, u"3"_s, u""_s), courtRow(u"D"_s, u"4"_s, u"13/45/2002"_s),
                  courtRow(u"E"_s, u"5"_s, u"01/02/2002"_s)});
    const ResultListView *list = ListOf(window);
    ClickHeader(list, 2);
    ClickHeader(list, 2);
    // Texts in the order of texts: "13/45/2002" is before "1999...", as "/" is before "9".
    QCOMPARE(columnOf(list, 0), u"C D B E A"_s);
    QCOMPARE(columnOf(list, 2), u" 13/45/2002 12/31/1999 01/02/2002 Unknown"_s);
}

void tst_ResultSorting::archivedAndOpenedNumbersStandBesideTheirTwins()
{
    const QString date = u"01/02/2002"_s;
    const frmNameSearchResults *window = finished(
        {courtRow(u"A"_s, u"*99-2-00002-1"_s, date), courtRow(u"B"_s, u"99-2-00001-1"_s, date),
         courtRow(u"C"_s, u"99-2-00003-1"_s, date), courtRow(u"D"_s, u"99-2-00002-1"_s, date),
         courtRow(u"E"_s, u">>99-2-00001-1"_s, date),
         courtRow(u"F"_s, u">>*99-2-00003-1"_s, date)});
    const ResultListView *list = ListOf(window);
    ClickHeader(list, 1);
    ClickHeader(list, 1);
    QCOMPARE(columnOf(list, 0), u"B E A D C F"_s);
    QCOMPARE(columnOf(list, 1), u"99-2-00001-1 >>99-2-00001-1 *99-2-00002-1 99-2-00002-1 "
                                "99-2-00003-1 >>*99-2-00003-1"_s);
}

void tst_ResultSorting::negativeAndZeroLedNumbers()
{
    const QString date = u"01/02/2002"_s;
    const frmNameSearchResults *window =
        finished({courtRow(u"A"_s, u"02-2-00001-1"_s, date), courtRow(u"B"_s, u"(7)"_s, date),
                  courtRow(u"C"_s, u"99-2-00001-1"_s, date), courtRow(u"D"_s, u"-12"_s, date),
                  courtRow(u"E"_s, u"(30)"_s, date), courtRow(u"F"_s, u"CV-1"_s, date)});
    const ResultListView *list = ListOf(window);
    ClickHeader(list, 1);
    ClickHeader(list, 1);
    QCOMPARE(columnOf(list, 1), u"(30) (7) -12 99-2-00001-1 02-2-00001-1 CV-1"_s);
    ClickHeader(list, 1);
    QCOMPARE(columnOf(list, 1), u"CV-1 02-2-00001-1 99-2-00001-1 -12 (7) (30)"_s);
}

void tst_ResultSorting::theArrowAndTheNameFollowTheFirstSixColumns_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("arrow");
    QTest::newRow("0") << 0 << u"Name"_s << u"0v"_s;
    QTest::newRow("1") << 1 << u"Case No."_s << u"1v"_s;
    QTest::newRow("2") << 2 << u"Court Code"_s << u"2v"_s;
    QTest::newRow("3") << 3 << u"Court Location"_s << u"3v"_s;
    QTest::newRow("4") << 4 << u"Type"_s << u"4v"_s;
    QTest::newRow("5") << 5 << u"Status"_s << u"5v"_s;
    QTest::newRow("6") << 6 << u"Name"_s << QString();
    QTest::newRow("7") << 7 << u"Name"_s << QString();
}

void tst_ResultSorting::theArrowAndTheNameFollowTheFirstSixColumns()
{
    QFETCH(int, column);
    const std::unique_ptr<NameResultsWindow> window(MakeWindow(Which::Civil));
    window->resize(1200, 500);
    window->show();
    const ResultListView *list = ListOf(window.get());
    QCOMPARE(window->SortColumnName, u"Name"_s);
    QCOMPARE(ArrowOf(list), u"0"_s);
    ClickHeader(list, column);
    QTEST(window->SortColumnName, "name");
    QTEST(ArrowOf(list), "arrow");
}

void tst_ResultSorting::newRowsStandBelowSortedOnes()
{
    court->Expect(RequestLine()).Reply({ResultLine(u"A"_s), ResultLine(u"B"_s)});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->When([&] { return window->RowCount() == 2; },
               [&] {
                   ClickHeader(ListOf(window), 0);
                   court->SendTokens({ResultLine(u"D"_s), ResultLine(u"C"_s), u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(columnOf(ListOf(window), 0), u"B A D C"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 4 Cases Retrieved."_s);
    ClickHeader(ListOf(window), 0);
    QCOMPARE(columnOf(ListOf(window), 0), u"A B C D"_s);
}

void tst_ResultSorting::selectionAndCurrentRowSurvive()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"A"_s), ResultLine(u"B"_s), ResultLine(u"C"_s)});
    ResultListView *list = ListOf(window);
    list->selectRow(0);
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    ClickHeader(list, 0);
    QCOMPARE(columnOf(list, 0), u"C B A"_s);
    QCOMPARE(list->SelectedRow(), 2);
    QCOMPARE(list->currentIndex().row(), 2);
    QCOMPARE(list->selectionModel()->selectedRows().size(), 1);
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
}

void tst_ResultSorting::theNoteOfTooManyResultsCanBeClicked()
{
    const frmNameSearchResults *window =
        finished({u"This search resulted in more than 200 results."_s});
    const ResultListView *list = ListOf(window);
    ClickHeader(list, 0);
    QVERIFY(list->List()->Cell(0, 0).startsWith(u"Tip:"));
    QVERIFY(window->SortColumnName.startsWith(u"NOTE:"));
}

void tst_ResultSorting::anEmptyListCanBeClicked()
{
    const frmNameSearchResults *window = finished({});
    ClickHeader(ListOf(window), 1);
    QCOMPARE(window->RowCount(), 0);
    QCOMPARE(window->SortColumnName, u"Case Number"_s);
}

void tst_ResultSorting::datesOfBirthOfNames()
{
    frmDiscisNCNameResults window;
    window.resize(1200, 500);
    ResultListView *names = ListOf(&window, "lvDupe");
    QCOMPARE(ArrowOf(names), u"0"_s);
    window.ShowHeaderIconNC(0, Qt::DescendingOrder, true);
    QCOMPARE(ArrowOf(names), u"0v"_s);
    QCOMPARE(ArrowOf(ListOf(&window)), u"0"_s);
    names->show();
    window.show();
    for (const QString &birth : {u"12/31/1960"_s, u"n/a"_s, u"01/02/1970"_s})
        names->List()->AddRow({birth.first(2), u"M"_s, birth});
    ClickHeader(names, 2);
    QCOMPARE(columnOf(names, 2), u"n/a 01/02/1970 12/31/1960"_s);
    QCOMPARE(ArrowOf(names), u"2v"_s);
    QCOMPARE(ArrowOf(ListOf(&window)), u"0"_s);
    QCOMPARE(window.SortColumnName, u"D.O.B."_s);
}

void tst_ResultSorting::eachWindowHasItsOwnFlag()
{
    const std::unique_ptr<NameResultsWindow> one(MakeWindow(Which::Civil));
    const std::unique_ptr<NameResultsWindow> other(MakeWindow(Which::Civil));
    for (const auto *window : {one.get(), other.get()}) {
        auto *list = ListOf(window);
        list->window()->show();
        ClickHeader(list, 0);
        QCOMPARE(ArrowOf(list), u"0v"_s);
    }
}

HALVANE_TEST(tst_ResultSorting)
#include "tst_ResultSorting.moc"
