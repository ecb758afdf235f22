#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/DistrictSearch.h"
#include "session/SessionEvents.h"
#include "support/HalvaneTest.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

class tst_DiscisResults : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void columns_data();
    void columns();
    void theAddressesAreThoseOfTheirWindowOnly();
    void buttonsAtLoad_data();
    void buttonsAtLoad();
    void whatTheStarterHandsOver_data();
    void whatTheStarterHandsOver();
    void civilSearchOverTwoCourts();
    void criteriaOfACivilSearch();
    void criteriaOfANonCivilSearch();
    void endOfFileBehindTextIsARow();
    void aRowInThereofIsARow();
    void anErrorRowSendsTheLinesThatFollow();
    void nonCivilCompletion_data();
    void nonCivilCompletion();
    void aShortRowLosesTheSearch();
    void stopWhilePending_data();
    void stopWhilePending();
    void stopWhileSearching_data();
    void stopWhileSearching();
    void closeResultsCloses_data();
    void closeResultsCloses();
    void createNewSearchShowsTheSearchForm_data();
    void createNewSearchShowsTheSearchForm();
    void moreDetailsComeSoon_data();
    void moreDetailsComeSoon();
    void theListOfCourtsRefusesEdits_data();
    void theListOfCourtsRefusesEdits();
    void theFocusStandsOnTheList_data();
    void theFocusStandsOnTheList();
    void nonCivilHelp();

private:
    static void eachDistrictWindow();
};

void tst_DiscisResults::eachDistrictWindow()
{
    QTest::addColumn<Which>("which");
    QTest::newRow("civil") << Which::Civil;
    QTest::newRow("non-civil") << Which::NonCivil;
}

void tst_DiscisResults::columns_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<bool>("addresses");
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QString>("search");
    QTest::newRow("civil") << Which::Civil << false
                           << u"Name, Case No., Court Code, Court Location, Type, Status, Party, "
                              "Vio./File Date"_s
                           << QString();
    QTest::newRow("SNCI") << Which::NonCivil << false
                          << u"Name, Case No., L.E.A., Court, Type, Status, Party, Vio./File Date"_s
                          << u"SNCI"_s;
    QTest::newRow("DND") << Which::NonCivil << true
                         << u"Name, Case No., Court, LEA, Type, Status, Party, Vio./File Date"_s
                         << u"DND"_s;
}

void tst_DiscisResults::columns()
{
    QFETCH(Which, which);
    QFETCH(bool, addresses);
    const std::unique_ptr<NameResultsWindow> window(
        addresses ? new frmDiscisNCNameResults(DiscisDndSearch::Yes) : MakeWindow(which));
    QTEST(HeadersOf(window.get()).join(u", "_s), "columns");
    if (const auto *nonCivil = qobject_cast<const frmDiscisNCNameResults *>(window.get()))
        QTEST(nonCivil->lblDNDorSNCI, "search");
}

void tst_DiscisResults::theAddressesAreThoseOfTheirWindowOnly()
{
    const frmDiscisNCNameResults first(DiscisDndSearch::Yes);
    const frmDiscisNCNameResults second;
    QCOMPARE(first.lblDNDorSNCI, u"DND"_s);
    QCOMPARE(second.lblDNDorSNCI, u"SNCI"_s);
    const auto *names = first.findChild<QTableView *>(u"lvDupe"_s);
    QCOMPARE(names->model()->headerData(3, Qt::Horizontal).toString(), u"Adddress"_s);
}

void tst_DiscisResults::buttonsAtLoad_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<bool>("enabled");
    for (const Which which : {Which::Civil, Which::NonCivil}) {
        const bool civil = which == Which::Civil;
        const auto row = [&](const char *name, const QString &caption, bool visible, bool enabled) {
            const QByteArray prefix(civil ? "civil " : "non-civil ");
            QTest::newRow(QByteArray(prefix + name).constData())
                << which << QByteArray(name) << caption << visible << enabled;
        };
        row("cmdStopSearching", u"&Stop Search"_s, true, true);
        row("cmdSearchResults_0", u"Retrieve Case &Details"_s, true, false);
        row("cmdSearchResults_1", u"&Close Results"_s, true, true);
        row("cmdSearchResults_2", u"&Print Results"_s, true, false);
        row("cmdSearchResults_3", u"Create New &Search"_s, true, true);
        row("cmdSaveResultToFile", u"&Save Results"_s, true, true);
        row("cmdEmail", civil ? u"&Email Results"_s : u"&Email"_s, true, true);
        row("cmdPrintMoreInfo", u"Print &Add'l Details"_s, true, true);
        row("cmdCloseMoreInfo", u"&Hide Add'l Details"_s, false, true);
        if (!civil)
            row("cmdViewDupes", u"&View Duplicates"_s, true, false);
    }
}

void tst_DiscisResults::buttonsAtLoad()
{
    QFETCH(Which, which);
    QFETCH(QByteArray, name);
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {DistrictLine()});
    const QPushButton *button = ButtonOf(window, name);
    QVERIFY(button);
    QTEST(button->text(), "caption");
    QTEST(button->isVisible(), "visible");
    QTEST(button->isEnabled(), "enabled");
}

void tst_DiscisResults::whatTheStarterHandsOver_data()
{
    eachDistrictWindow();
}

void tst_DiscisResults::whatTheStarterHandsOver()
{
    QFETCH(Which, which);
    const std::unique_ptr<NameResultsWindow> made(MakeWindow(which));
    auto *window = qobject_cast<DiscisResultsWindow *>(made.get());
    window->SetNameVal(u"SMITH, JOHN Q"_s);
    window->SetCourtCounty(u"Benton District/Municipal Courts"_s);
    window->SetCaseTypeVals(u"CIVIL"_s);
    window->SetTxtCountyList(u"Benton District (BED)"_s);
    QCOMPARE(TextOf(window, "lblNameVal"), u"SMITH, JOHN Q"_s);
    QCOMPARE(window->windowTitle(), u"Name Search Results - SMITH, JOHN Q"_s);
    QCOMPARE(TextOf(window, "lblCourtCounty"), u"Benton District/Municipal Courts"_s);
    QCOMPARE(TextOf(window, "lblCaseTypeVals"), u"CIVIL"_s);
    QCOMPARE(TextOf(window, "txtCountyList"), u"Benton District (BED)"_s);
}

void tst_DiscisResults::civilSearchOverTwoCourts()
{
    court->Expect(DistrictLine(u"BED"_s))
        .Reply({CaseRow(u"SMITH, A"_s), CaseRow(u"SMITH, B"_s), u"EOF~"_s});
    court->Expect(DistrictLine(u"OTD"_s)).Reply({u"Searching~Othello~"_s, CaseRow(u"SMITH, C"_s)});
    auto *window =
        Begin(new frmDiscisNameResults, {DistrictLine(u"BED"_s), DistrictLine(u"OTD"_s)});
    QString meanwhile;
    desk->When([&] { return window->RowCount() == 3; },
               [&] {
                   QTRY_COMPARE(TextOf(window, "Label3"), u"Cases Found: 3"_s);
                   meanwhile = window->windowTitle();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(meanwhile, u"SMITH, JOHN, Q in Adams County, Washington District/Municipal Courts"_s);
    QCOMPARE(RowsOf(window).size(), 3);
    QCOMPARE(RowsOf(window)[2],
             (QStringList{u"SMITH, C"_s, u"C0012345"_s, u"BED"_s, u"Benton District"_s, u"CV"_s,
                          u"OPN"_s, u"DEF"_s, u"01/02/2002"_s}));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 3 Cases Retrieved."_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"), complete);
    QCOMPARE(TextOf(window, "Label3"), QString());
    QVERIFY(desk->Folder.Logged(u"Items In this Queue: 2"_s));
    QVERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
}

void tst_DiscisResults::criteriaOfACivilSearch()
{
    auto *window = new frmDiscisNameResults;
    desk->Enqueue(window, {DistrictLine()});
    window->SetCaseTypeVals(u"CIVIL"_s);
    window->ShowSearchCriteria(0);
    QCOMPARE(TextOf(window, "lblNameVal"), u"SMITH, JOHN, Q"_s);
    QCOMPARE(TextOf(window, "lblCaseTypeVals"), u"CIVIL  CV"_s);
    QCOMPARE(window->windowTitle(),
             u"SMITH, JOHN, Q in Benton County, Washington District/Municipal Courts"_s);
}

void tst_DiscisResults::criteriaOfANonCivilSearch()
{
    auto *window = new frmDiscisNCNameResults;
    desk->Enqueue(window, {DistrictLine(u"*SW"_s, u"IN"_s)});
    window->SetCourtCounty(u"Statewide - All Counties"_s);
    window->ShowSearchCriteria(0);
    QCOMPARE(TextOf(window, "lblCaseTypeVals"), u"NON-CIVIL"_s);
    QCOMPARE(window->windowTitle(),
             u"SMITH, JOHN, Q in Statewide - All Counties, Washington District/Municipal Courts"_s);
}

void tst_DiscisResults::endOfFileBehindTextIsARow()
{
    const QString row = u"SMITH~1~2~3~4~5~6~EOF~"_s;
    court->Expect(DistrictLine()).Reply({row, u"EOF~"_s});
    auto *window = Search(new frmDiscisNameResults, {DistrictLine()});
    QCOMPARE(RowsOf(window)[0].last(), u"EOF"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_DiscisResults::aRowInThereofIsARow()
{
    court->Expect(DistrictLine()).Reply({u"HEIRS~1~2~3~4~5~6~THEREOF~"_s, u"EOF~THEREOF~"_s});
    auto *window = Search(new frmDiscisNameResults, {DistrictLine()});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
}

void tst_DiscisResults::anErrorRowSendsTheLinesThatFollow()
{
    court->Expect(DistrictLine(u"BED"_s)).Reply({u"ERROR~Court is down~"_s, u"EOF~"_s});
    court->Expect(DistrictLine(u"OTD"_s)).Reply({CaseRow(u"SMITH"_s), u"EOF~"_s});
    auto *window =
        Search(new frmDiscisNameResults, {DistrictLine(u"BED"_s), DistrictLine(u"OTD"_s)});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(window->RowCount(), 1);
}

void tst_DiscisResults::nonCivilCompletion_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("status");
    QTest::newRow("none") << 0 << u"Search Complete:    0 Cases Retrieved."_s;
    QTest::newRow("one") << 1 << u"Search Complete:    1 Case Retrieved."_s;
    QTest::newRow("two") << 2 << u"Search Complete:    2 Cases Retrieved."_s;
}

void tst_DiscisResults::nonCivilCompletion()
{
    QFETCH(int, rows);
    QStringList reply;
    for (int i = 0; i < rows; ++i)
        reply.append(CaseRow(u"SMITH"_s));
    court->Expect(DistrictLine()).Reply(reply << u"EOF~"_s);
    auto *window = Search(new frmDiscisNCNameResults, {DistrictLine()});
    QTEST(TextOf(window, "lblStatus"), "status");
    QCOMPARE(TextOf(window, "lblSearchStatus"), complete);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QCOMPARE(TextOf(window, "Label3"), QString());
    QVERIFY(!window->DupesFound);
}

void tst_DiscisResults::aShortRowLosesTheSearch()
{
    court->Expect(DistrictLine()).Reply({u"SMITH~1~2~3~"_s, u"EOF~"_s});
    auto *window = Search(new frmDiscisNameResults, {DistrictLine()});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
}

void tst_DiscisResults::stopWhilePending_data()
{
    eachDistrictWindow();
}

void tst_DiscisResults::stopWhilePending()
{
    QFETCH(Which, which);
    desk->ConnectTo(*court);
    Global.bShowAlerts = true;
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {DistrictLine()});
    desk->Boxes.Expect(u"Stop This Search?"_s, u"Stop Search Verification"_s, MsgAnswer::Yes);
    ButtonOf(window, "cmdStopSearching")->click();
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User .. "_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"Search Stopped By User. No Results Were Retrieved."_s);
    QCOMPARE(TextOf(window, "Label3"), QString());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(Global.bUserStoppedSearch);
    QVERIFY(!window->Timer1->isActive());
}

void tst_DiscisResults::stopWhileSearching_data()
{
    eachDistrictWindow();
}

void tst_DiscisResults::stopWhileSearching()
{
    QFETCH(Which, which);
    court->Expect(DistrictLine()).Reply({CaseRow(u"A"_s)});
    court->Expect(u"STOP¦"_s).Reply({u"EOF~"_s});
    NameResultsWindow *window = Begin(MakeWindow(which), {DistrictLine()});
    desk->When([&] { return window->RowCount() == 1; },
               [&] { ButtonOf(window, "cmdStopSearching")->click(); });
    QTRY_COMPARE(TextOf(window, "lblStatus"), u"Search Stopped By User: 1 Cases Retrieved."_s);
    QCOMPARE(TextOf(window, "lblSearchStatus"),
             u"Search Stopped By User. Some results may not have been retrieved."_s);
    QCOMPARE(
        desk->Folder.TimesLogged(u"Searching Stopped by User. Request Was: "_s + DistrictLine()),
        1);
    QVERIFY(
        desk->Folder.Logged(u"EXITED - SEARCH STOPPED BY USER  - from ProcessSearchReqeusts."_s));
    QVERIFY(desk->Finish(window));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_DiscisResults::closeResultsCloses_data()
{
    eachDistrictWindow();
}

void tst_DiscisResults::closeResultsCloses()
{
    QFETCH(Which, which);
    Global.bShowAlerts = false;
    const QPointer<NameResultsWindow> window(MakeWindow(which));
    desk->Enqueue(window.data(), {DistrictLine()});
    ButtonOf(window, "cmdSearchResults_1")->click();
    QTRY_VERIFY(window.isNull());
}

void tst_DiscisResults::createNewSearchShowsTheSearchForm_data()
{
    eachDistrictWindow();
}

void tst_DiscisResults::createNewSearchShowsTheSearchForm()
{
    QFETCH(Which, which);
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {DistrictLine()});
    const QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::SearchFormWanted);
    ButtonOf(window, "cmdSearchResults_3")->click();
    QCOMPARE(wanted.size(), 1);
}

void tst_DiscisResults::moreDetailsComeSoon_data()
{
    eachDistrictWindow();
}

void tst_DiscisResults::moreDetailsComeSoon()
{
    QFETCH(Which, which);
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {DistrictLine()});
    desk->Boxes.Expect(u"Coming Soon .."_s, u"Halvane"_s);
    ButtonOf(window, "cmdPrintMoreInfo")->click();
    QCOMPARE(desk->Boxes.Answered(), 1);
}

void tst_DiscisResults::theListOfCourtsRefusesEdits_data()
{
    eachDistrictWindow();
}

void tst_DiscisResults::theListOfCourtsRefusesEdits()
{
    QFETCH(Which, which);
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {DistrictLine()});
    window->SetTxtCountyList(u"Benton District (BED)"_s);
    desk->Boxes.Expect(u"This field is Read-Only. Editing not allowed."_s,
                       u"Halvane - Information .."_s);
    QTest::keyClick(window->findChild<QLineEdit *>(u"txtCountyList"_s), Qt::Key_X);
    QCOMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(window->txtCountyList(), u"Benton District (BED)"_s);
}

void tst_DiscisResults::theFocusStandsOnTheList_data()
{
    eachDistrictWindow();
}

void tst_DiscisResults::theFocusStandsOnTheList()
{
    QFETCH(Which, which);
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {DistrictLine()});
    QVERIFY(window->focusWidget());
    QCOMPARE(window->focusWidget()->objectName(), u"listview1"_s);
}

void tst_DiscisResults::nonCivilHelp()
{
    auto *window = new frmDiscisNCNameResults;
    desk->Enqueue(window, {DistrictLine()});
    desk->Boxes.Expect(u"Not Implemented Yet."_s, u"Halvane"_s);
    ButtonOf(window, "lblHelp")->click();
    QCOMPARE(desk->Boxes.Answered(), 1);
}

HALVANE_TEST(tst_DiscisResults)
#include "tst_DiscisResults.moc"
