#include "controls/ResultListView.h"
#include "core/GlobalState.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "namesearch/DistrictSearch.h"

#include <QPushButton>
#include <QTest>

namespace {
const QString multipleNames = u"Multiple Names Match. Please Select Name(s) to retrieve."_s;
const QString checkNames = u"Duplicate Names Found. Check Name(s) to Retrieve Associated Cases."_s;
const QString completeInView =
    u" Search Completed Successfully.   Double-Click on any Case to Retrieve Details."_s;
const QString howToOpen = u"To retrieve case details, either double-click on a case from the list, "
                          "or highlight it and click 'Retrieve Case Details'."_s;
const QString howToCheck = u"Mulitple Names Match Search Criteria. Check Name(s) to retrieve cases "
                           "for and click 'Retrieve Case(s)'"_s;

QString bars(QString line)
{
    return line.replace(u'/', u'\u00A6');
}

/// The request line of a statewide search, as the search form makes it.
QString statewideLine(const QString &search = u"SNCI"_s)
{
    return bars(u"WADISCIS/SEARCH/SMITH/JOHN/Q/*SW/IN/%1/"_s.arg(search));
}

/// A person without an address, of the name SMITH and this first name.
QString nameRow(const QString &first)
{
    return u"NCNMD~SMITH, %1~M~01/02/1970~W~510~180~BRO~NONE~"_s.arg(first);
}

/// A person with an address.
QString addressRow(const QString &first, const QString &number)
{
    return u"NCDND~SMITH, %1~M~510~W~180~01/02/1970~BRO~%2~01~12 MAIN ST~"_s.arg(first, number);
}

/// The second search for the person in this row, of the name SMITH and this first name.
QString casesLine(const QString &first, int row, const QString &searched = u"SMITH, JOHN, Q"_s)
{
    return bars(u"WADISCIS/SEARCH/%1/SMITH, %2/M/01|02|1970/W/510/180/BRO/NONE/%3/SNCINMD/"_s
                    .arg(searched, first)
                    .arg(row))
        .replace(u'|', u'/');
}

ResultListView *listOf(const QWidget *window, const char *name)
{
    return window->findChild<ResultListView *>(QLatin1StringView(name));
}

QList<QStringList> namesOf(const QWidget *window)
{
    const ResultListModel *list = listOf(window, "lvDupe")->List();
    QList<QStringList> rows;
    for (int row = 0; row < list->Count(); ++row) {
        QStringList cells;
        for (int column = 0; column < list->columnCount(); ++column)
            cells.append(list->Cell(row, column));
        rows.append(cells);
    }
    return rows;
}

QString frontOf(const QWidget *window)
{
    const bool cases = listOf(window, "listview1")->isVisible();
    const bool names = listOf(window, "lvDupe")->isVisible();
    return cases == names ? u"one list must be in front"_s : names ? u"names"_s : u"cases"_s;
}

/// Clicks the check box of a row.
void check(const QWidget *window, int row)
{
    ResultListView *list = listOf(window, "lvDupe");
    const QRect cell = list->visualRect(list->List()->index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      QPoint(cell.left() + 10, cell.center().y()));
}
} // namespace

class tst_DupesWindow : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void columns_data();
    void columns();
    void onlyNamesHaveCheckBoxes();
    void aSearchThatReturnsOnlyDuplicateNamesEndsWithTheNamesInFront();
    void namesWithAddresses();
    void anAddressRowOfAnotherLengthIsADescription();
    void completion_data();
    void completion();
    void whatComesGoesInFront();
    void bothViews_data();
    void bothViews();
    void theFocusGoesWithTheLists();
    void markupInACellIsText();
    void aShortNameRowLosesTheSearch();
    void otherOutcomesLeaveBothListsToBeSeen_data();
    void otherOutcomesLeaveBothListsToBeSeen();
    void retrievingWithoutACheckIsRefused();
    void retrievingTwoCheckedNamesSendsTwoLinesInListOrder();
    void retrievingTwoCheckedNamesWithAddresses();
    void aCheckedNameIsSentWithoutItsMark();
    void theSecondSearchIsAFreshJob();
    void theSecondSearchCarriesTheClientCode();
    void anotherSearchKeepsTheLink();
    void nothingIsRetrievedDuringARun();
    void stopWhileTheSecondSearchIsPending();
    void stopDuringTheSecondSearch();
    void theLinkIsLostDuringTheSecondSearch();
    void anErrorInTheSecondSearch();
    void theSecondSearchFindsNoCases();
    void theSecondSearchFindsFurtherNames();
    void theNoticeOfTooManyMakesPlaceForCases();
    void aLongNameDoesNotWidenTheWindow();
    void bothListsAreWrittenSmall();

private:
    /// A finished statewide search with these replies.
    frmDiscisNCNameResults *searched(const QStringList &replies, const QString &search = u"SNCI"_s);
    frmDiscisNCNameResults *begun(const QString &search = u"SNCI"_s);
    /// Runs the second search to its end.
    void retrieve(frmDiscisNCNameResults *window);
};

frmDiscisNCNameResults *tst_DupesWindow::begun(const QString &search)
{
    desk->ConnectTo(*court);
    Global.bShowAlerts = false;
    Global.DiscisDndSearch = search == u"DND";
    auto *window = new frmDiscisNCNameResults;
    window->SetCourtCounty(u"Statewide - All Counties"_s);
    desk->Enqueue(window, {statewideLine(search)});
    window->Timer1->start(1);
    return window;
}

frmDiscisNCNameResults *tst_DupesWindow::searched(const QStringList &replies, const QString &search)
{
    court->Expect(statewideLine(search)).Reply(replies);
    frmDiscisNCNameResults *window = begun(search);
    return desk->Finish(window) ? window : nullptr;
}

void tst_DupesWindow::retrieve(frmDiscisNCNameResults *window)
{
    ButtonOf(window, "cmdSearchResults_0")->click();
    QVERIFY(desk->Finish(window));
}

void tst_DupesWindow::columns_data()
{
    QTest::addColumn<bool>("addresses");
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QString>("columns");
    QTest::newRow("cases, SNCI") << false << QByteArray("listview1")
                                 << u"Name 2400, Case No. 1100, L.E.A. 800, Court 1500, Type 700, "
                                    "Status 600, Party 600, Vio./File Date 1500"_s;
    QTest::newRow("cases, DND") << true << QByteArray("listview1")
                                << u"Name 2400, Case No. 1100, Court 1500, LEA 700, Type 700, "
                                   "Status 600, Party 600, Vio./File Date 1500"_s;
    QTest::newRow("names, SNCI") << false << QByteArray("lvDupe")
                                 << u"Name 2300, Sex 700, D.O.B. 1200, Race 700, Height 800, "
                                    "Weight 800, Physical Desc. 2300, Notes 900"_s;
    QTest::newRow("names, DND") << true << QByteArray("lvDupe")
                                << u"Name 2400, Sex 500, D.O.B. 1200, Adddress 2600, Race 500, "
                                   "Ht. 400, Wt. 400, Phys. Desc. 800"_s;
}

void tst_DupesWindow::columns()
{
    QFETCH(bool, addresses);
    QFETCH(QByteArray, list);
    Global.DiscisDndSearch = addresses;
    const frmDiscisNCNameResults window;
    QStringList columns;
    for (const ListColumn &column : listOf(&window, list)->List()->Columns())
        columns.append(column.Header + u' ' + QString::number(column.Width));
    QTEST(columns.join(u", "_s), "columns");
}

void tst_DupesWindow::onlyNamesHaveCheckBoxes()
{
    const frmDiscisNCNameResults window;
    QVERIFY(listOf(&window, "lvDupe")->List()->HasCheckBoxes());
    QVERIFY(!listOf(&window, "listview1")->List()->HasCheckBoxes());
    QCOMPARE(TextOf(&window, "Label1"), howToOpen);
}

void tst_DupesWindow::aSearchThatReturnsOnlyDuplicateNamesEndsWithTheNamesInFront()
{
    court->Expect(statewideLine()).Reply({nameRow(u"A"_s), nameRow(u"B"_s)});
    frmDiscisNCNameResults *window = begun();
    QStringList meanwhile;
    desk->When([&] { return namesOf(window).size() == 2; },
               [&] {
                   QTest::qWait(60);
                   meanwhile = {TextOf(window, "Label3"), TextOf(window, "lblSearchStatus")};
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(meanwhile, (QStringList{u"Cases Found: 2"_s, multipleNames}));
    QCOMPARE(frontOf(window), u"names"_s);
    QVERIFY(window->DupesFound);
    QVERIFY(window->ShowingDupes);
    QCOMPARE(namesOf(window), (QList<QStringList>{{u"SMITH, A"_s, u"M"_s, u"01/02/1970"_s, u"W"_s,
                                                   u"510"_s, u"180"_s, u"BRO"_s, u"NONE"_s},
                                                  {u"SMITH, B"_s, u"M"_s, u"01/02/1970"_s, u"W"_s,
                                                   u"510"_s, u"180"_s, u"BRO"_s, u"NONE"_s}}));
    QCOMPARE(listOf(window, "lvDupe")->List()->Key(1), u"I2"_s);
    QCOMPARE(window->RowCount(), 0);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    2 Duplicate Names Found."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), checkNames);
    QVERIFY(!ButtonOf(window, "cmdViewDupes")->isEnabled());
    QCOMPARE(ButtonOf(window, "cmdViewDupes")->text(), u"&View Cases"_s);
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    QVERIFY(desk->Folder.Logged(u"NORMAL EXIT - from ProcessSearchReqeusts."_s));
}

void tst_DupesWindow::namesWithAddresses()
{
    const frmDiscisNCNameResults *window =
        searched({addressRow(u"A"_s, u"K1"_s), u"EOF~"_s}, u"DND"_s);
    QCOMPARE(namesOf(window),
             (QList<QStringList>{{u"SMITH, A"_s, u"M"_s, u"01/02/1970"_s, u"12 MAIN ST"_s, u"W"_s,
                                  u"510"_s, u"180"_s, u"BRO"_s}}));
    QCOMPARE(listOf(window, "lvDupe")->List()->Key(0), u"K1/01/1"_s);
}

void tst_DupesWindow::anAddressRowOfAnotherLengthIsADescription()
{
    const frmDiscisNCNameResults *window = searched(
        {u"NCDND~SMITH, A~M~unknown~W~unknown~180~unknown~unknown~"_s, u"EOF~"_s}, u"DND"_s);
    QCOMPARE(namesOf(window),
             (QList<QStringList>{{u"SMITH, A"_s, u"M"_s, u"n/a"_s, u"W"_s, u"n/a"_s, u"180"_s,
                                  u"unknown"_s, u"unknown"_s}}));
    QCOMPARE(listOf(window, "lvDupe")->List()->Key(0), u"I1"_s);
}

void tst_DupesWindow::completion_data()
{
    QTest::addColumn<QString>("rows"); // n: a name, c: a case
    QTest::addColumn<QString>("front");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("searchStatus");
    QTest::addColumn<QString>("other"); // cmdViewDupes
    QTest::addColumn<bool>("otherEnabled");

    const QString viewCases = u"&View Cases"_s;
    const QString viewDupes = u"&View Duplicates"_s;
    const auto row = [](const char *name, const QString &rows, const QString &front,
                        const QString &found, const QString &other, bool enabled) {
        QTest::newRow(name) << rows << front << QString(u"Search Complete:    "_s + found)
                            << (front == u"names" ? checkNames : complete) << other << enabled;
    };
    row("nothing", {}, u"cases"_s, u"0 Cases Retrieved."_s, viewDupes, false);
    row("one case", u"c"_s, u"cases"_s, u"1 Case Retrieved."_s, viewDupes, false);
    row("cases", u"cc"_s, u"cases"_s, u"2 Cases Retrieved."_s, viewDupes, false);
    row("one name", u"n"_s, u"names"_s, u"1 Duplicate Names Found."_s, viewCases, false);
    row("names", u"nnn"_s, u"names"_s, u"3 Duplicate Names Found."_s, viewCases, false);
    row("names before a case", u"nnc"_s, u"cases"_s, u"1 Case Retrieved."_s, viewDupes, true);
    row("names before cases", u"ncc"_s, u"cases"_s, u"2 Cases Retrieved."_s, viewDupes, true);
    row("cases before names", u"ccn"_s, u"names"_s, u"1 Duplicate Names Found."_s, viewCases, true);
    row("mixed", u"ncncn"_s, u"names"_s, u"3 Duplicate Names Found."_s, viewCases, true);
}

void tst_DupesWindow::completion()
{
    QFETCH(QString, rows);
    QStringList replies;
    for (const QChar kind : rows)
        replies.append(kind == u'n' ? nameRow(u"A"_s) : CaseRow(u"SMITH"_s));
    const frmDiscisNCNameResults *window = searched(replies << u"EOF~"_s);
    QTEST(frontOf(window), "front");
    QTEST(TextOf(window, "lblStatus"), "status");
    QTEST(TextOf(window, "lblSearchStatus"), "searchStatus");
    QTEST(ButtonOf(window, "cmdViewDupes")->text(), "other");
    QTEST(ButtonOf(window, "cmdViewDupes")->isEnabled(), "otherEnabled");
    QCOMPARE(namesOf(window).size(), rows.count(u'n'));
    QCOMPARE(window->RowCount(), static_cast<int>(rows.count(u'c')));
    QCOMPARE(TextOf(window, "Label3"), QString());
    for (const char *label : {"lblStatus", "lblSearchStatus"}) {
        QCOMPARE(ColourOf(window, label), u"blue"_s);
        QVERIFY(IsBold(window, label));
    }
}

void tst_DupesWindow::whatComesGoesInFront()
{
    court->Expect(statewideLine());
    frmDiscisNCNameResults *window = begun();
    const QStringList rows{nameRow(u"A"_s), nameRow(u"B"_s), CaseRow(u"C"_s), nameRow(u"D"_s),
                           u"EOF~"_s};
    QStringList seen;
    for (int came = 0; came < rows.size(); ++came) {
        desk->When(
            [&, came] {
                return !court->Requests().isEmpty()
                       && namesOf(window).size() + window->RowCount() == came;
            },
            [&, came] {
                QTest::qWait(60);
                seen.append(frontOf(window) + u", "_s + TextOf(window, "Label3"));
                court->SendTokens({rows[came]});
            });
    }
    QVERIFY(desk->Finish(window));
    QCOMPARE(seen, (QStringList{u"cases, Cases Found: 0"_s, u"names, Cases Found: 1"_s,
                                u"names, Cases Found: 2"_s, u"cases, Cases Found: 1"_s,
                                u"names, Cases Found: 3"_s}));
}

void tst_DupesWindow::bothViews_data()
{
    QTest::addColumn<int>("clicks"); // on cmdViewDupes, with the cases in front
    QTest::addColumn<QString>("front");
    QTest::addColumn<QString>("instruction");
    QTest::addColumn<QString>("searchStatus");
    QTest::addColumn<QString>("retrieve");
    QTest::addColumn<QString>("other");
    QTest::newRow("to names") << 1 << u"names"_s << howToCheck << multipleNames
                              << u"Retrieve Case(s)"_s << u"&View Cases"_s;
    QTest::newRow("to cases") << 2 << u"cases"_s << howToOpen << completeInView
                              << u"Retrieve Case Details"_s << u"&View Duplicates"_s;
    QTest::newRow("to names again") << 3 << u"names"_s << howToCheck << multipleNames
                                    << u"Retrieve Case(s)"_s << u"&View Cases"_s;
}

void tst_DupesWindow::bothViews()
{
    QFETCH(int, clicks);
    const frmDiscisNCNameResults *window =
        searched({nameRow(u"A"_s), CaseRow(u"SMITH"_s), u"EOF~"_s});
    const QString status = TextOf(window, "lblStatus");
    const bool opens = ButtonOf(window, "cmdSearchResults_0")->isEnabled();
    for (int i = 0; i < clicks; ++i)
        ButtonOf(window, "cmdViewDupes")->click();
    QTEST(frontOf(window), "front");
    QCOMPARE(window->ShowingDupes, frontOf(window) == u"names");
    QTEST(TextOf(window, "Label1"), "instruction");
    QTEST(TextOf(window, "lblSearchStatus"), "searchStatus");
    QTEST(ButtonOf(window, "cmdSearchResults_0")->text(), "retrieve");
    QTEST(ButtonOf(window, "cmdViewDupes")->text(), "other");
    QVERIFY(ButtonOf(window, "cmdViewDupes")->isEnabled());
    QCOMPARE(ButtonOf(window, "cmdSearchResults_0")->isEnabled(), window->ShowingDupes || opens);
    QCOMPARE(TextOf(window, "lblStatus"), status);
}

void tst_DupesWindow::theFocusGoesWithTheLists()
{
    frmDiscisNCNameResults *window = searched({CaseRow(u"SMITH"_s), nameRow(u"A"_s), u"EOF~"_s});
    QCOMPARE(window->focusWidget()->objectName(), u"lvDupe"_s);
    window->ToggleDupesView();
    QCOMPARE(window->focusWidget()->objectName(), u"listview1"_s);
    ButtonOf(window, "cmdViewDupes")->setFocus();
    window->ToggleDupesView();
    QCOMPARE(window->focusWidget()->objectName(), u"cmdViewDupes"_s);
}

void tst_DupesWindow::markupInACellIsText()
{
    const QString name = u"<b>SMITH</b> &amp; <img src=x>"_s;
    const frmDiscisNCNameResults *window =
        searched({u"NCNMD~%1~M~2~3~4~5~6~7~"_s.arg(name), u"EOF~"_s});
    const ResultListView *list = listOf(window, "lvDupe");
    const QVariant shown = list->model()->index(0, 0).data();
    QCOMPARE(shown.typeId(), QMetaType::QString);
    QCOMPARE(shown.toString(), name);
}

void tst_DupesWindow::aShortNameRowLosesTheSearch()
{
    const frmDiscisNCNameResults *window = searched({u"NCNMD~SMITH~M~"_s, u"EOF~"_s});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QVERIFY(window->DupesFound);
}

void tst_DupesWindow::otherOutcomesLeaveBothListsToBeSeen_data()
{
    QTest::addColumn<QString>("rows"); // n: a name, c: a case
    QTest::addColumn<bool>("otherEnabled");
    QTest::newRow("names and cases") << u"ncn"_s << true;
    QTest::newRow("cases and names") << u"nc"_s << true;
    QTest::newRow("names") << u"n"_s << false;
    QTest::newRow("cases") << u"c"_s << false;
}

void tst_DupesWindow::otherOutcomesLeaveBothListsToBeSeen()
{
    QFETCH(QString, rows);
    QStringList replies;
    for (const QChar kind : rows)
        replies.append(kind == u'n' ? nameRow(u"A"_s) : CaseRow(u"SMITH"_s));
    const frmDiscisNCNameResults *window = searched(replies << u"ERROR~x~"_s << u"EOF~"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QTEST(ButtonOf(window, "cmdViewDupes")->isEnabled(), "otherEnabled");
    if (window->ShowingDupes)
        QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
}

void tst_DupesWindow::retrievingWithoutACheckIsRefused()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"EOF~"_s});
    Global.bStopRequested = true;
    listOf(window, "lvDupe")->selectRow(0);
    desk->Boxes.Expect(
        u"No Name(s) Selected. Please place a checkmark next to the name(s) to retrieve."_s,
        u"Halvane - Invalid Request .."_s);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(desk->Boxes.Answered(), 1);
    QVERIFY(Global.bStopRequested);
    QCOMPARE(window->lboxQueue.Lines(), QStringList{statewideLine()});
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(namesOf(window)[0][0], u"SMITH, A"_s);
    QVERIFY(!window->Timer1->isActive());
}

void tst_DupesWindow::retrievingTwoCheckedNamesSendsTwoLinesInListOrder()
{
    frmDiscisNCNameResults *window =
        searched({nameRow(u"A"_s), nameRow(u"B"_s), nameRow(u"C"_s), u"EOF~"_s});
    court->Expect(casesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    court->Expect(casesLine(u"C"_s, 3))
        .Reply({CaseRow(u"SMITH, C"_s), CaseRow(u"SMITH, C"_s), u"EOF~"_s});
    // The last one first: what counts is the order of the list.
    check(window, 2);
    check(window, 0);
    const QString key = window->txtMasterKey;
    retrieve(window);
    QCOMPARE(window->txtMasterKey, key);
    QCOMPARE(window->lboxQueue.Lines(), (QStringList{casesLine(u"A"_s, 1), casesLine(u"C"_s, 3)}));
    QCOMPARE(namesOf(window)[0][0], u">>SMITH, A"_s);
    QCOMPARE(namesOf(window)[1][0], u"SMITH, B"_s);
    QCOMPARE(namesOf(window)[2][0], u">>SMITH, C"_s);
    QCOMPARE(frontOf(window), u"cases"_s);
    QCOMPARE(window->RowCount(), 3);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    3 Cases Retrieved."_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), complete);
    QVERIFY(ButtonOf(window, "cmdViewDupes")->isEnabled());
    QCOMPARE(ButtonOf(window, "cmdViewDupes")->text(), u"&View Duplicates"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    // The criteria of each line after the first one are shown.
    QCOMPARE(TextOf(window, "lblNameVal"), u"SMITH, JOHN, Q, SMITH, C, M"_s);
}

void tst_DupesWindow::retrievingTwoCheckedNamesWithAddresses()
{
    frmDiscisNCNameResults *window =
        searched({addressRow(u"A"_s, u"K1"_s), addressRow(u"B"_s, u"K/2"_s), u"EOF~"_s}, u"DND"_s);
    const auto line = [](const QString &first, const QString &key) {
        return bars(u"WADISCIS/SEARCH/SMITH, JOHN, Q/SMITH, %1/M/01|02|1970/%2/DNDND/"_s.arg(first,
                                                                                             key))
            .replace(u'|', u'/');
    };
    court->Expect(line(u"A"_s, u"K1/01"_s)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    // A slash in the person's number cuts it: the key has no escape.
    court->Expect(line(u"B"_s, u"K/2"_s)).Reply({CaseRow(u"SMITH, B"_s), u"EOF~"_s});
    check(window, 0);
    check(window, 1);
    retrieve(window);
    QCOMPARE(RowsOf(window).size(), 2);
}

void tst_DupesWindow::aCheckedNameIsSentWithoutItsMark()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"EOF~"_s});
    check(window, 0);
    for (int i = 1; i <= 2; ++i) {
        court->Expect(casesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
        retrieve(window);
        QCOMPARE(namesOf(window)[0][0], u">>SMITH, A"_s);
        QCOMPARE(window->RowCount(), i);
        ButtonOf(window, "cmdViewDupes")->click();
    }
    QVERIFY(listOf(window, "lvDupe")->List()->IsChecked(0));
}

void tst_DupesWindow::theSecondSearchIsAFreshJob()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"ERROR~x~"_s, u"EOF~"_s});
    QVERIFY(window->SearchIncomplete);
    check(window, 0);
    EnqueueKey(u"another job's"_s);
    window->StopRequested = true;
    window->SortColumnName = u"D.O.B."_s;
    Global.bStopRequested = true;
    Global.bUserStoppedSearch = true;
    window->Timer1->setInterval(1'000'000);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(frmQueue::Form().FIFO.Lines(),
             (QStringList{u"another job's"_s, window->txtMasterKey}));
    QVERIFY(window->Timer1->isActive());
    QVERIFY(window->tmrBlink->isActive());
    QVERIFY(!window->StopRequested);
    QVERIFY(!window->SearchIncomplete);
    QVERIFY(!Global.bStopRequested);
    QVERIFY(!Global.bUserStoppedSearch);
    QCOMPARE(window->SortColumnName, u"Name"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), inProgress);
    QVERIFY(ButtonOf(window, "cmdStopSearching")->isEnabled());
    // It waits behind the other one.
    window->Timer1->setInterval(1);
    QTest::qWait(20);
    QCOMPARE(court->Requests().size(), 1);
    ReleaseTurn();
    court->Expect(casesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    1 Case Retrieved."_s);
}

void tst_DupesWindow::theSecondSearchCarriesTheClientCode()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"EOF~"_s});
    window->ClientAcctgCode = u"ABC"_s;
    check(window, 0);
    const QString line = casesLine(u"A"_s, 1);
    court->Expect(line.chopped(1) + u"^^CAC:ABC^^\u00A6"_s).Reply({u"EOF~"_s});
    retrieve(window);
    QCOMPARE(window->lboxQueue.Lines(), QStringList{line});
}

void tst_DupesWindow::anotherSearchKeepsTheLink()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"EOF~"_s});
    check(window, 0);
    Global.bSearchInProgress = true;
    ButtonOf(window, "cmdSearchResults_0")->click();
    QVERIFY(Global.bSearchInProgress);
    QTest::qWait(20);
    QCOMPARE(court->Requests().size(), 1);
    court->Expect(casesLine(u"A"_s, 1)).Reply({u"EOF~"_s});
    Global.bSearchInProgress = false;
    QVERIFY(desk->Finish(window));
}

void tst_DupesWindow::nothingIsRetrievedDuringARun()
{
    court->Expect(statewideLine()).Reply({nameRow(u"A"_s)});
    frmDiscisNCNameResults *window = begun();
    const QPushButton *button = ButtonOf(window, "cmdSearchResults_0");
    bool duringTheFirst = true;
    desk->When([&] { return namesOf(window).size() == 1; },
               [&] {
                   duringTheFirst = button->isEnabled();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(!duringTheFirst);
    QVERIFY(button->isEnabled());

    court->Expect(casesLine(u"A"_s, 1)).Reply({nameRow(u"B"_s)});
    check(window, 0);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QVERIFY(!button->isEnabled());
    bool duringTheSecond = true;
    desk->When([&] { return namesOf(window).size() == 2; },
               [&] {
                   duringTheSecond = button->isEnabled();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(!duringTheSecond);
    QVERIFY(button->isEnabled());
}

void tst_DupesWindow::stopWhileTheSecondSearchIsPending()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"EOF~"_s});
    check(window, 0);
    window->Timer1->setInterval(1'000'000);
    ButtonOf(window, "cmdSearchResults_0")->click();
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"Search Stopped By User. No Results Were Retrieved."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!window->Timer1->isActive());
    // And it can be asked for again.
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    court->Expect(casesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    window->Timer1->setInterval(1);
    retrieve(window);
    QCOMPARE(window->RowCount(), 1);
}

void tst_DupesWindow::stopDuringTheSecondSearch()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), nameRow(u"B"_s), u"EOF~"_s});
    court->Expect(casesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s)});
    court->Expect(u"STOP\u00A6"_s);
    check(window, 0);
    check(window, 1);
    bool retrievable = true;
    desk->When([&] { return window->RowCount() == 1; },
               [&] {
                   ButtonOf(window, "cmdStopSearching")->click();
                   ButtonOf(window, "cmdViewDupes")->setEnabled(true);
                   ButtonOf(window, "cmdViewDupes")->click();
                   // The run still reads to the end mark.
                   retrievable = ButtonOf(window, "cmdSearchResults_0")->isEnabled();
                   court->SendTokens({u"EOF~"_s});
               });
    ButtonOf(window, "cmdSearchResults_0")->click();
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User: 1 Cases Retrieved."_s);
    QVERIFY(!retrievable);
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(Global.bUserStoppedSearch);
}

void tst_DupesWindow::theLinkIsLostDuringTheSecondSearch()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"EOF~"_s});
    court->Expect(casesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s)}).Drop();
    check(window, 0);
    retrieve(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QVERIFY(window->SearchIncomplete);
    QVERIFY(desk->Folder.Logged(
        u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts."_s));
    QCOMPARE(window->RowCount(), 1);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(ButtonOf(window, "cmdViewDupes")->isEnabled());
}

void tst_DupesWindow::anErrorInTheSecondSearch()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), nameRow(u"B"_s), u"EOF~"_s});
    court->Expect(casesLine(u"A"_s, 1)).Reply({u"ERROR~Nobody~"_s, u"EOF~"_s});
    court->Expect(casesLine(u"B"_s, 2)).Reply({CaseRow(u"SMITH, B"_s), u"EOF~"_s});
    check(window, 0);
    check(window, 1);
    retrieve(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(window->RowCount(), 1);
}

void tst_DupesWindow::theSecondSearchFindsNoCases()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"EOF~"_s});
    court->Expect(casesLine(u"A"_s, 1)).Reply({u"EOF~"_s});
    check(window, 0);
    retrieve(window);
    QCOMPARE(frontOf(window), u"names"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    1 Duplicate Names Found."_s);
    QVERIFY(!ButtonOf(window, "cmdViewDupes")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
}

void tst_DupesWindow::theSecondSearchFindsFurtherNames()
{
    frmDiscisNCNameResults *window = searched({nameRow(u"A"_s), u"EOF~"_s});
    court->Expect(casesLine(u"A"_s, 1)).Reply({nameRow(u"B"_s), u"EOF~"_s});
    check(window, 0);
    retrieve(window);
    QCOMPARE(namesOf(window).size(), 2);
    QCOMPARE(listOf(window, "lvDupe")->List()->Key(1), u"I2"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    2 Duplicate Names Found."_s);
}

void tst_DupesWindow::theNoticeOfTooManyMakesPlaceForCases()
{
    frmDiscisNCNameResults *window =
        searched({nameRow(u"A"_s), u"This search resulted in more than 200 results."_s});
    QCOMPARE(HeadersOf(window).size(), 1);
    court->Expect(casesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    check(window, 0);
    retrieve(window);
    QCOMPARE(HeadersOf(window).size(), 8);
    QCOMPARE(RowsOf(window).size(), 1);
}

void tst_DupesWindow::aLongNameDoesNotWidenTheWindow()
{
    frmDiscisNCNameResults window;
    const int width = window.minimumSizeHint().width();
    window.SetNameVal(QStringList(20, u"SMITH, JOHN"_s).join(u", "_s));
    QCOMPARE(window.minimumSizeHint().width(), width);
}

/// Nine characters of a case number, or three of a height, fit their columns only so.
void tst_DupesWindow::bothListsAreWrittenSmall()
{
    const frmDiscisNCNameResults window;
    for (const char *name : {"listview1", "lvDupe"})
        QVERIFY(listOf(&window, name)->font().pointSizeF() < window.font().pointSizeF());
}

QTEST_MAIN(tst_DupesWindow)
#include "tst_DupesWindow.moc"
