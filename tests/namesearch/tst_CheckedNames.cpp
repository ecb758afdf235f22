#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "namesearch/DupesSearch.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

/// The second search: the cases of the people who are checked.
class tst_CheckedNames : public DupesTest
{
    Q_OBJECT
private Q_SLOTS:
    void retrievingWithoutACheckIsRefused();
    void retrievingTwoCheckedNamesSendsTwoLinesInListOrder();
    void retrievingTwoCheckedNamesWithAddresses();
    void theCheckedRowsAreTheRightOnesInASortedList_data();
    void theCheckedRowsAreTheRightOnesInASortedList();
    void theArrowAgreesWithTheSortColumn();
    void aCheckedNameIsSentWithoutItsMark();
    void theSecondSearchIsAFreshJob();
    void theSecondSearchCountsFromTheBeginning();
    void thePersonIsAskedForInTheSameWordsEachTime();
    void theSecondSearchCarriesTheClientCode();
    void anotherSearchKeepsTheLink();
    void nothingIsRetrievedDuringARun();
    void stopWhileTheSecondSearchIsPending();
    void theKeyboardGoesToTheNames_data();
    void theKeyboardGoesToTheNames();
    void stopDuringTheSecondSearch();
    void theLinkIsLostDuringTheSecondSearch();
    void anErrorInTheSecondSearch();
    void theSecondSearchFindsNoCases();
    void theSecondSearchFindsFurtherNames();
    void whatIsReadBehindTheCasesOfPeople();
    void theNoticeOfTooManyMakesPlaceForCases();
};

void tst_CheckedNames::retrievingWithoutACheckIsRefused()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    Global.bStopRequested = true;
    ListOf(window, "lvDupe")->selectRow(0);
    desk->Boxes.Expect(
        u"No Name(s) Selected. Please place a checkmark next to the name(s) to retrieve."_s,
        u"Halvane - Invalid Request .."_s);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QCOMPARE(desk->Boxes.Answered(), 1);
    QVERIFY(Global.bStopRequested);
    QCOMPARE(window->lboxQueue.Lines(), QStringList{StatewideLine()});
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(NamesOf(window)[0][0], u"SMITH, A"_s);
    QVERIFY(!window->Timer1->isActive());
}

void tst_CheckedNames::retrievingTwoCheckedNamesSendsTwoLinesInListOrder()
{
    frmDiscisNCNameResults *window =
        Searched({PersonRow(u"A"_s), PersonRow(u"B"_s), PersonRow(u"C"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"C"_s, 3))
        .Reply({CaseRow(u"SMITH, C"_s), CaseRow(u"SMITH, C"_s), u"EOF~"_s});
    // The last one first: what counts is the order of the list.
    CheckRow(window, 2);
    CheckRow(window, 0);
    const QString key = window->txtMasterKey;
    Retrieve(window);
    QCOMPARE(window->txtMasterKey, key);
    QCOMPARE(window->lboxQueue.Lines(), (QStringList{CasesLine(u"A"_s, 1), CasesLine(u"C"_s, 3)}));
    QCOMPARE(NamesOf(window)[0][0], u">>SMITH, A"_s);
    QCOMPARE(NamesOf(window)[1][0], u"SMITH, B"_s);
    QCOMPARE(NamesOf(window)[2][0], u">>SMITH, C"_s);
    QCOMPARE(FrontOf(window), u"cases"_s);
    QCOMPARE(window->RowCount(), 3);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    3 Cases Retrieved."_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), complete);
    QVERIFY(ButtonOf(window, "cmdViewDupes")->isEnabled());
    QCOMPARE(ButtonOf(window, "cmdViewDupes")->text(), u"&View Duplicates"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    // The criteria of each line after the first one are shown.
    QCOMPARE(TextOf(window, "lblNameVal"), u"SMITH, JOHN, Q, SMITH, C, M"_s);
}

void tst_CheckedNames::retrievingTwoCheckedNamesWithAddresses()
{
    frmDiscisNCNameResults *window =
        Searched({AddressRow(u"A"_s, u"K1"_s), AddressRow(u"B"_s, u"K/2"_s), u"EOF~"_s}, u"DND"_s);
    const auto line = [](const QString &first, const QString &key) {
        return u"WADISCIS¦SEARCH¦SMITH, JOHN, Q¦SMITH, %1¦M¦01/02/1970¦%2¦DNDND¦"_s.arg(first, key);
    };
    court->Expect(line(u"A"_s, u"K1¦01"_s)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    // A slash in the person's number cuts it: the key has no escape.
    court->Expect(line(u"B"_s, u"K¦2"_s)).Reply({CaseRow(u"SMITH, B"_s), u"EOF~"_s});
    CheckRow(window, 0);
    CheckRow(window, 1);
    Retrieve(window);
    QCOMPARE(RowsOf(window).size(), 2);
}

void tst_CheckedNames::theCheckedRowsAreTheRightOnesInASortedList_data()
{
    QTest::addColumn<bool>("checkedFirst");
    QTest::newRow("checked, then sorted") << true;
    QTest::newRow("sorted, then checked") << false;
}

void tst_CheckedNames::theCheckedRowsAreTheRightOnesInASortedList()
{
    QFETCH(bool, checkedFirst);
    frmDiscisNCNameResults *window = Searched(
        {PersonRow(u"B"_s), PersonRow(u"A"_s), PersonRow(u"D"_s), PersonRow(u"C"_s), u"EOF~"_s});
    ResultListView *names = ListOf(window, "lvDupe");
    if (checkedFirst) {
        CheckRow(window, 1);
        CheckRow(window, 2);
    }
    ClickHeader(names, 0);
    QCOMPARE(NamesOf(window)[0][0], u"SMITH, D"_s);
    if (!checkedFirst) {
        CheckRow(window, 0);
        CheckRow(window, 3);
    }
    QCOMPARE(names->List()->CheckedRows(), (QList<int>{0, 3}));
    // In the order that the list has now; the number is the one that the court sent them in.
    const QStringList lines{CasesLine(u"D"_s, 3), CasesLine(u"A"_s, 2)};
    court->Expect(lines[0]).Reply({CaseRow(u"SMITH, D"_s), u"EOF~"_s});
    court->Expect(lines[1]).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    Retrieve(window);
    QCOMPARE(window->lboxQueue.Lines(), lines);
    QStringList shown;
    for (const QStringList &cells : NamesOf(window))
        shown.append(cells[0]);
    QCOMPARE(shown, (QStringList{u">>SMITH, D"_s, u"SMITH, C"_s, u"SMITH, B"_s, u">>SMITH, A"_s}));
    QCOMPARE(names->List()->CheckedRows(), (QList<int>{0, 3}));
}

void tst_CheckedNames::theArrowAgreesWithTheSortColumn()
{
    frmDiscisNCNameResults *window =
        Searched({CaseRow(u"SMITH, X"_s), PersonRow(u"A"_s), PersonRow(u"B"_s), u"EOF~"_s});
    window->resize(1200, 600);
    window->ToggleDupesView();
    ClickHeader(ListOf(window), 1);
    QCOMPARE(window->SortColumnName, u"Case No."_s);
    QCOMPARE(ArrowOf(ListOf(window)), u"1v"_s);
    window->ToggleDupesView();
    ClickHeader(ListOf(window, "lvDupe"), 2);
    QCOMPARE(window->SortColumnName, u"D.O.B."_s);
    QCOMPARE(ArrowOf(ListOf(window, "lvDupe")), u"2v"_s);
    QCOMPARE(ArrowOf(ListOf(window)), u"1v"_s);
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    CheckRow(window, 0);
    Retrieve(window);
    QCOMPARE(window->SortColumnName, u"Name"_s);
    QCOMPARE(ArrowOf(ListOf(window)), u"0"_s);
    // The names stand as they were sorted.
    QCOMPARE(ArrowOf(ListOf(window, "lvDupe")), u"2v"_s);
}

void tst_CheckedNames::aCheckedNameIsSentWithoutItsMark()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    CheckRow(window, 0);
    for (int i = 1; i <= 2; ++i) {
        court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
        Retrieve(window);
        QCOMPARE(NamesOf(window)[0][0], u">>SMITH, A"_s);
        QCOMPARE(window->RowCount(), i);
        ButtonOf(window, "cmdViewDupes")->click();
    }
    QVERIFY(ListOf(window, "lvDupe")->List()->IsChecked(0));
}

void tst_CheckedNames::theSecondSearchIsAFreshJob()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"ERROR~x~"_s, u"EOF~"_s});
    QVERIFY(window->SearchIncomplete);
    CheckRow(window, 0);
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
    Ticks(20);
    QCOMPARE(court->Requests().size(), 1);
    ReleaseTurn();
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    1 Case Retrieved."_s);
}

void tst_CheckedNames::theSecondSearchCountsFromTheBeginning()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), PersonRow(u"B"_s), u"EOF~"_s});
    QCOMPARE(TextOf(window, "Label3"), QString());
    QStringList counts;
    for (const auto &[first, row] : {std::pair{u"A"_s, 1}, std::pair{u"B"_s, 2}}) {
        court->Expect(CasesLine(first, row)).Reply({});
        CheckRow(window, row - 1);
        desk->When([this, asked = row + 1] { return court->Requests().size() == asked; },
                   [&] {
                       counts.append(TextOf(window, "Label3"));
                       court->SendTokens({u"EOF~"_s});
                   });
    }
    Retrieve(window);
    // The names of the first search are no rows of this one.
    QCOMPARE(counts, (QStringList{u"Cases Found: 0"_s, u"Cases Found: 0"_s}));
}

void tst_CheckedNames::thePersonIsAskedForInTheSameWordsEachTime()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), PersonRow(u"B"_s), u"EOF~"_s});
    CheckRow(window, 0);
    CheckRow(window, 1);
    const QStringList lines{CasesLine(u"A"_s, 1), CasesLine(u"B"_s, 2)};
    for (int i = 0; i < 3; ++i) {
        court->Expect(lines[0]).Reply({u"EOF~"_s});
        court->Expect(lines[1]).Reply({u"EOF~"_s});
        Retrieve(window);
        QCOMPARE(window->lboxQueue.Lines(), lines);
        // The labels are of the person who was asked for last, and do not grow.
        QCOMPARE(window->lblNameVal(), u"SMITH, JOHN, Q, SMITH, B, M"_s);
        QCOMPARE(window->windowTitle(), u"SMITH, JOHN, Q, SMITH, B, M in Statewide - All Counties, "
                                        "Washington District/Municipal Courts"_s);
    }
}

void tst_CheckedNames::theSecondSearchCarriesTheClientCode()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    window->ClientAcctgCode = u"ABC"_s;
    CheckRow(window, 0);
    const QString line = CasesLine(u"A"_s, 1);
    court->Expect(line.chopped(1) + u"^^CAC:ABC^^¦"_s).Reply({u"EOF~"_s});
    Retrieve(window);
    QCOMPARE(window->lboxQueue.Lines(), QStringList{line});
}

void tst_CheckedNames::anotherSearchKeepsTheLink()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    CheckRow(window, 0);
    Global.bSearchInProgress = true;
    ButtonOf(window, "cmdSearchResults_0")->click();
    QVERIFY(Global.bSearchInProgress);
    Ticks(20);
    QCOMPARE(court->Requests().size(), 1);
    court->Expect(CasesLine(u"A"_s, 1)).Reply({u"EOF~"_s});
    Global.bSearchInProgress = false;
    QVERIFY(desk->Finish(window));
}

void tst_CheckedNames::nothingIsRetrievedDuringARun()
{
    court->Expect(StatewideLine()).Reply({PersonRow(u"A"_s)});
    frmDiscisNCNameResults *window = Begun();
    const QPushButton *button = ButtonOf(window, "cmdSearchResults_0");
    bool duringTheFirst = true;
    desk->When([&] { return NamesOf(window).size() == 1; },
               [&] {
                   duringTheFirst = button->isEnabled();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(!duringTheFirst);
    QVERIFY(button->isEnabled());

    court->Expect(CasesLine(u"A"_s, 1)).Reply({PersonRow(u"B"_s)});
    CheckRow(window, 0);
    ButtonOf(window, "cmdSearchResults_0")->click();
    QVERIFY(!button->isEnabled());
    bool duringTheSecond = true;
    desk->When([&] { return NamesOf(window).size() == 2; },
               [&] {
                   duringTheSecond = button->isEnabled();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(!duringTheSecond);
    QVERIFY(button->isEnabled());
}

void tst_CheckedNames::stopWhileTheSecondSearchIsPending()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    CheckRow(window, 0);
    window->Timer1->setInterval(1'000'000);
    ButtonOf(window, "cmdSearchResults_0")->click();
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"Search Stopped By User. No Results Were Retrieved."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!window->Timer1->isActive());
    // And it can be asked for again.
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    window->Timer1->setInterval(1);
    Retrieve(window);
    QCOMPARE(window->RowCount(), 1);
}

void tst_CheckedNames::theKeyboardGoesToTheNames_data()
{
    QTest::addColumn<bool>("stops");
    QTest::newRow("from the button that retrieves") << false;
    QTest::newRow("from Stop") << true;
}

void tst_CheckedNames::theKeyboardGoesToTheNames()
{
    QFETCH(bool, stops);
    const frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    CheckRow(window, 0);
    window->Timer1->setInterval(1'000'000);
    QPushButton *retrieve = ButtonOf(window, "cmdSearchResults_0");
    QPushButton *stop = ButtonOf(window, "cmdStopSearching");
    if (!stops)
        retrieve->setFocus();
    retrieve->click();
    if (stops) {
        stop->setFocus();
        stop->click();
    }
    // They are in front: not to the cases behind them, and not to whatever button comes next.
    QCOMPARE(window->focusWidget()->objectName(), u"lvDupe"_s);
}

void tst_CheckedNames::stopDuringTheSecondSearch()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), PersonRow(u"B"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s)});
    court->Expect(u"STOP¦"_s);
    CheckRow(window, 0);
    CheckRow(window, 1);
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
    QCOMPARE(ColourOf(window, "lblSearchStatus"), u"red"_s);
    ButtonOf(window, "cmdViewDupes")->click();
    // The words of either list are no words of trouble.
    QCOMPARE(ColourOf(window, "lblSearchStatus"), u"blue"_s);
    ButtonOf(window, "cmdViewDupes")->click();
    QVERIFY(!retrievable);
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(Global.bUserStoppedSearch);
}

void tst_CheckedNames::theLinkIsLostDuringTheSecondSearch()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s)}).Drop();
    CheckRow(window, 0);
    Retrieve(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QVERIFY(window->SearchIncomplete);
    QVERIFY(desk->Folder.Logged(
        u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts."_s));
    QCOMPARE(window->RowCount(), 1);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(ButtonOf(window, "cmdViewDupes")->isEnabled());
}

void tst_CheckedNames::anErrorInTheSecondSearch()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), PersonRow(u"B"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"A"_s, 1)).Reply({u"ERROR~Nobody~"_s, u"EOF~"_s});
    court->Expect(CasesLine(u"B"_s, 2)).Reply({CaseRow(u"SMITH, B"_s), u"EOF~"_s});
    CheckRow(window, 0);
    CheckRow(window, 1);
    Retrieve(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(window->RowCount(), 1);
}

void tst_CheckedNames::theSecondSearchFindsNoCases()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"A"_s, 1)).Reply({u"EOF~"_s});
    CheckRow(window, 0);
    Retrieve(window);
    QCOMPARE(FrontOf(window), u"names"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    1 Duplicate Names Found."_s);
    QVERIFY(!ButtonOf(window, "cmdViewDupes")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdSearchResults_0")->isEnabled());
}

void tst_CheckedNames::theSecondSearchFindsFurtherNames()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"A"_s, 1)).Reply({PersonRow(u"B"_s), u"EOF~"_s});
    CheckRow(window, 0);
    Retrieve(window);
    QCOMPARE(NamesOf(window).size(), 2);
    QCOMPARE(ListOf(window, "lvDupe")->List()->Key(1), u"I2"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    2 Duplicate Names Found."_s);
}

/// As behind every search that is complete: the status line has the number, of all cases in the
/// list or of all people, and the label that counted while they came is empty.
void tst_CheckedNames::whatIsReadBehindTheCasesOfPeople()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), PersonRow(u"B"_s), u"EOF~"_s});
    const auto read = [window] {
        return QStringList{FrontOf(window), TextOf(window, "Label3"), TextOf(window, "lblStatus"),
                           TextOf(window, "lblSearchStatus")};
    };
    const auto retrieve = [&](int row, const QStringList &reply) {
        const QString first = row == 1 ? u"A"_s : u"B"_s;
        court->Expect(CasesLine(first, row)).Reply(reply + QStringList{u"EOF~"_s});
        for (int i = 0; i < 2; ++i)
            ListOf(window, "lvDupe")->List()->SetChecked(i, i + 1 == row);
        Retrieve(window);
        return read();
    };
    const auto cases = [](const QString &found) {
        return QStringList{u"cases"_s, QString(), u"Search Complete:    "_s + found, complete};
    };
    QCOMPARE(retrieve(1, {CaseRow(u"SMITH, A"_s)}), cases(u"1 Case Retrieved."_s));
    // What the user looks at then is no search: the lists change places, the numbers stay.
    ButtonOf(window, "cmdViewDupes")->click();
    QCOMPARE(read(), (QStringList{u"names"_s, QString(), u"Search Complete:    1 Case Retrieved."_s,
                                  u"Multiple Names Match. Please Select Name(s) to retrieve."_s}));
    QCOMPARE(retrieve(2, {CaseRow(u"SMITH, B"_s), CaseRow(u"SMITH, B"_s)}),
             cases(u"3 Cases Retrieved."_s));
    // Who has no case leaves the people in front.
    ButtonOf(window, "cmdViewDupes")->click();
    QCOMPARE(
        retrieve(1, {}),
        (QStringList{u"names"_s, QString(), u"Search Complete:    2 Duplicate Names Found."_s,
                     u"Duplicate Names Found. Check Name(s) to Retrieve Associated Cases."_s}));
    QVERIFY(ButtonOf(window, "cmdViewDupes")->isEnabled());
}

void tst_CheckedNames::theNoticeOfTooManyMakesPlaceForCases()
{
    frmDiscisNCNameResults *window =
        Searched({PersonRow(u"A"_s), u"This search resulted in more than 200 results."_s});
    QCOMPARE(HeadersOf(window).size(), 1);
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    CheckRow(window, 0);
    Retrieve(window);
    QCOMPARE(HeadersOf(window).size(), 8);
    QCOMPARE(RowsOf(window).size(), 1);
}

HALVANE_TEST(tst_CheckedNames)
#include "tst_CheckedNames.moc"
