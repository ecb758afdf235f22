#include "casedetails/DistrictDesk.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/GlobalState.h"
#include "courts/DiscisCourts.h"
#include "jobs/frmQueue.h"
#include "namesearch/DistrictSearch.h"
#include "searchentry/SearchDispatch.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QApplication>
#include <QPushButton>
#include <QTableView>
#include <QTest>

// The cases of the District and Municipal Courts, in their two windows.

namespace {
const QString endMark = u"EOF~"_s;
const QString notLocatedCell = u"This Case Was Not Located. No Summary Details Retrieved."_s;
const QString notAssociated = u"Case Number not associated with this court"_s;
const QString archived = u"Archived case, Summary information is not available"_s;
const QString nonJis = u"Non-JIS case. Summary information not available"_s;
} // namespace

class tst_DistrictCases : public DistrictTest
{
    Q_OBJECT
private Q_SLOTS:
    void atLoad_data();
    void atLoad();
    void everyLineFromACaseNumber_data();
    void everyLineFromACaseNumber();
    void everyLineFromARow_data();
    void everyLineFromARow();
    void theMarksOfANumberAreNotSent_data();
    void theMarksOfANumberAreNotSent();
    void settingsSayWhatIsFetched_data();
    void settingsSayWhatIsFetched();
    void theSettingsOfOtherCourtsDoNotCount_data();
    void theSettingsOfOtherCourtsDoNotCount();

    void summaryPhrases_data();
    void summaryPhrases();
    void anArchivedCaseGivesTheNoteAndNoRows();
    void theNonCivilRunGoesOnBehindAPhrase();
    void aNotAssociatedCivilCaseStopsTheRunAtSummary();
    void aCaseThatWasNotLocatedStopsTheRun_data();
    void aCaseThatWasNotLocatedStopsTheRun();
    void whatWasNotLocatedCanBeFetchedOnDemand();
    void theHeadersOfACase_data();
    void theHeadersOfACase();
    void emptyHeadersAreNotOnFile_data();
    void emptyHeadersAreNotOnFile();
    void aHeaderLineWithoutAMarkLosesNoCase_data();
    void aHeaderLineWithoutAMarkLosesNoCase();
    void theTitleAsTheCourtWritesIt_data();
    void theTitleAsTheCourtWritesIt();
    void theAmountHasItsSign_data();
    void theAmountHasItsSign();
    void twoPairsInARow();
    void theRowsOfACivilCase();
    void nothingBehindTheHeaders_data();
    void nothingBehindTheHeaders();
    void aSummaryThatFailed_data();
    void aSummaryThatFailed();

private:
    /// Waits for the first run and, where that brings the Summary alone, fetches the rest.
    void runToTheLastTab(CaseWindow *window, bool onDemand);
};

void tst_DistrictCases::atLoad_data()
{
    EachWindow();
}

void tst_DistrictCases::atLoad()
{
    QFETCH(CaseKind, kind);
    const CaseWindow *window = Make(kind);
    QCOMPARE(window->Timer1->interval(), 2000);
    QCOMPARE(window->tmrBlink->interval(), 500);
    QCOMPARE(window->TmrSearchOnDemand->interval(), 900);
    QVERIFY(!window->TmrSearchOnDemand->isActive());
    QCOMPARE(TextOf(window, "lblCaseType"), DistrictOf(kind).caseType.toString());
    for (const DistrictTab &tab : DistrictOf(kind).tabs)
        QVERIFY(!IsSeen(window, tab.firstNote) && !IsSeen(window, tab.secondNote));
    QVERIFY(!IsSeen(window, "lblNote"));
}

void tst_DistrictCases::everyLineFromACaseNumber_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<bool>("onDemand");
    for (const DistrictWindow &window : districtWindows) {
        QTest::addRow("%s, at once", window.name) << window.kind << false;
        QTest::addRow("%s, on demand", window.name) << window.kind << true;
    }
}

void tst_DistrictCases::runToTheLastTab(CaseWindow *window, bool onDemand)
{
    QVERIFY(Finished(window));
    if (onDemand) {
        // Nothing but the Summary yet; all the rest is ticked.
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
        ClickTab(window, u"Names"_s);
        ButtonOf(window, "cmdSearchNow")->click();
        QVERIFY(Finished(window));
    }
}

void tst_DistrictCases::everyLineFromACaseNumber()
{
    QFETCH(CaseKind, kind);
    QFETCH(bool, onDemand);
    FetchAtOnce(DistrictOf(kind).section.toString(),
                onDemand ? QStringList() : CaptionsOfKind(kind));
    SearchEntry entry;
    entry.Court = CourtFamily::Discis;
    entry.Kind = SearchKind::Number;
    entry.Where = kind == CaseKind::Civil ? SearchScope::DiscisCivil : SearchScope::DiscisNonCivil;
    entry.Names[LastName] = u"5KS000123"_s;
    entry.DiscisCounty = u"King"_s;
    entry.DiscisSelected = QStringList{u"King District Seattle (SED)"_s};
    DiscisCaseWindow *window = new frmCivilCaseDetails;
    if (kind == CaseKind::NonCivil) {
        delete window;
        window = new frmNCCaseDetails;
    }
    QVERIFY(LoadDiscisCaseNumberFields(*window, entry, {}));
    desk->Enqueue(window);
    ExpectEveryLine(kind, u"5KS000123"_s, DistrictOf(kind).family.toString(), u"SED"_s);
    Run(window);
    runToTheLastTab(window, onDemand);
    CheckEveryTab(window, kind);
    QCOMPARE(window->windowTitle(), u"Case Details (5KS000123)"_s);
    QCOMPARE(TextOf(window, "lblCaseDetailsHdr"), u"Case Details (5KS000123)"_s);
    QCOMPARE(TextOf(window, "lblCaseType"), DistrictOf(kind).caseType.toString());
}

void tst_DistrictCases::everyLineFromARow_data()
{
    everyLineFromACaseNumber_data();
}

void tst_DistrictCases::everyLineFromARow()
{
    QFETCH(CaseKind, kind);
    QFETCH(bool, onDemand);
    LoadDiscisCourts();
    FetchAtOnce(DistrictOf(kind).section.toString(),
                onDemand ? QStringList() : CaptionsOfKind(kind));
    const Which which = kind == CaseKind::Civil ? Which::Civil : Which::NonCivil;
    const QString request = DistrictLine(u"BED"_s, DistrictOf(kind).family.toString());
    // The type of the row is part of the lines, whatever kind of case the window is for.
    court->Expect(request).Reply(
        {u"SMITH~*C0012345~BED~Benton District~IT~OPN~DEF~01/02/2002~"_s, endMark});
    desk->ConnectTo(*court);
    NameResultsWindow *results = MakeWindow(which);
    desk->Enqueue(results, {request});
    results->Timer1->start(1);
    QVERIFY(desk->Finish(results));
    ExpectEveryLine(kind, u"C0012345"_s, u"IT"_s, u"BED"_s);
    auto *list = results->findChild<QTableView *>(u"listview1"_s);
    const QPoint where = list->visualRect(list->model()->index(0, 1)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, where);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, where);
    DiscisCaseWindow *window = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *opened = qobject_cast<DiscisCaseWindow *>(widget))
            window = opened;
    }
    QVERIFY(window);
    desk->Time.Run(0.05);
    Begin(window);
    runToTheLastTab(window, onDemand);
    desk->Time.Stop();
    CheckEveryTab(window, kind);
    // What the row said of the case, until the court has said it better.
    QCOMPARE(TextOf(window, "lblDateFiled"), u"01/11/2005"_s);
    QCOMPARE(window->windowTitle(), u"Case Details (C0012345)"_s);
}

void tst_DistrictCases::theMarksOfANumberAreNotSent_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<QString>("number");
    for (const DistrictWindow &window : districtWindows) {
        QTest::addRow("%s, archived", window.name) << window.kind << u"*Y00012345"_s;
        QTest::addRow("%s, opened before", window.name) << window.kind << u">>Y00012345"_s;
        QTest::addRow("%s, both", window.name) << window.kind << u">>*Y00012345"_s;
    }
}

void tst_DistrictCases::theMarksOfANumberAreNotSent()
{
    QFETCH(CaseKind, kind);
    QFETCH(QString, number);
    FetchAtOnce(DistrictOf(kind).section.toString(), CaptionsOfKind(kind));
    ExpectEveryLine(kind, u"Y00012345"_s, DistrictOf(kind).family.toString(), u"SED"_s);
    CaseWindow *window = Make(kind, number);
    Run(window);
    // An archived case has the same tabs here.
    CheckEveryTab(window, kind);
}

void tst_DistrictCases::settingsSayWhatIsFetched_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<QStringList>("fetched");
    for (const DistrictWindow &window : districtWindows) {
        QTest::addRow("%s, nothing", window.name) << window.kind << QStringList();
        QTest::addRow("%s, all", window.name) << window.kind << CaptionsOfKind(window.kind);
        for (const QString &caption : CaptionsOfKind(window.kind))
            QTest::addRow("%s, %s", window.name, qPrintable(caption))
                << window.kind << QStringList{caption};
    }
}

void tst_DistrictCases::settingsSayWhatIsFetched()
{
    QFETCH(CaseKind, kind);
    QFETCH(QStringList, fetched);
    FetchAtOnce(DistrictOf(kind).section.toString(), fetched);
    ExpectSummary(kind, DistrictSummary(kind));
    for (const DistrictTab &tab : DistrictOf(kind).tabs) {
        if (fetched.contains(CaseTabRowOf(tab.tab).caption))
            court->Expect(DistrictLineOf(kind, tab.word)).Reply(GridDef({u"1~2~"_s}));
    }
    CaseWindow *window = Make(kind);
    Run(window);
    for (const DistrictTab &tab : DistrictOf(kind).tabs) {
        const QString caption = CaseTabRowOf(tab.tab).caption.toString();
        const CaseTabState &state = window->Tab(tab.tab);
        QCOMPARE(state.TabNotRetrieved, !fetched.contains(caption));
        QCOMPARE(state.TabDone, fetched.contains(caption));
        QCOMPARE(state.TabRequest, DistrictLineOf(kind, tab.word));
        ClickTab(window, caption);
        QCOMPARE(ShownFrame(window) == u"frameTabs_8", !fetched.contains(caption));
    }
}

void tst_DistrictCases::theSettingsOfOtherCourtsDoNotCount_data()
{
    EachWindow();
}

void tst_DistrictCases::theSettingsOfOtherCourtsDoNotCount()
{
    QFETCH(CaseKind, kind);
    desk->Folder.Remove(u"options.ini"_s);
    const CaseKind other = kind == CaseKind::Civil ? CaseKind::NonCivil : CaseKind::Civil;
    for (const QString &section :
         {DistrictOf(other).section.toString(), u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s})
        FetchAtOnce(section, CaptionsOfKind(kind));
    // A key that is not there is "0".
    const CaseWindow *window = AfterSummary(kind, DistrictSummary(kind));
    for (const DistrictTab &tab : DistrictOf(kind).tabs)
        QVERIFY(window->Tab(tab.tab).TabNotRetrieved);
}

void tst_DistrictCases::summaryPhrases_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("caption");
    const CaseKind nonCivil = CaseKind::NonCivil;
    const CaseKind civil = CaseKind::Civil;
    const QString wholeRun = u"Search Complete"_s;
    const QString notLocated = u"Search Stopped. Case Was Not Located."_s;
    const QString notLocatedCaption = u" - This Case Was Not Located!"_s;
    QTest::newRow("non-civil, no lines") << nonCivil << QStringList() << notLocatedCell << QString()
                                         << notLocated << notLocatedCaption;
    QTest::newRow("non-civil, archived")
        << nonCivil << QStringList{archived} << u"Archived Case. No Summary Information Found."_s
        << QString(u"Note: "_s + archived) << wholeRun << QString();
    QTest::newRow("non-civil, not associated")
        << nonCivil << QStringList{notAssociated} << QString(notAssociated + u'.')
        << QString(u"Note: "_s + notAssociated) << wholeRun << QString();
    QTest::newRow("non-civil, non-JIS")
        << nonCivil << QStringList{nonJis} << u"Non-JIS case. Summary information not available."_s
        << QString(u"Note: "_s + nonJis) << wholeRun << QString();
    QTest::newRow("civil, no lines")
        << civil << QStringList() << notLocatedCell << QString() << notLocated << notLocatedCaption;
    QTest::newRow("civil, not associated")
        << civil << QStringList{notAssociated}
        << u"Case Number not associated with this court! No Summary Details Retrieved."_s
        << QString(u"Note: "_s + notAssociated)
        << u"Search Stopped. Case Number not associated with this court."_s
        << u" - Case Number not associated with this court!"_s;
    // A word of the court in place of a case ends as any reply does.
    const QString notOnFile = u"ERROR -- Case is not on file"_s;
    const QString nothing = u"No Additional Summary Details Available."_s;
    const QString noItems = u"This case was not located."_s;
    QTest::newRow("non-civil, not on file")
        << nonCivil << QStringList{notOnFile} << nothing << QString() << wholeRun << QString();
    QTest::newRow("civil, not on file")
        << civil << QStringList{notOnFile} << noItems << QString() << wholeRun << QString();
    QTest::newRow("civil, archived")
        << civil << QStringList{archived} << noItems << QString() << wholeRun << QString();
    QTest::newRow("civil, non-JIS")
        << civil << QStringList{nonJis} << noItems << QString() << wholeRun << QString();
}

void tst_DistrictCases::summaryPhrases()
{
    QFETCH(CaseKind, kind);
    QFETCH(QStringList, reply);
    QFETCH(QString, cell);
    QFETCH(QString, note);
    QFETCH(QString, caption);
    const CaseWindow *window = AfterSummary(kind, reply);
    QCOMPARE(CellsOf(window, CaseTab::Summary), QList<QStringList>{{cell}});
    QCOMPARE(TextOf(window, "lblNote"), note);
    QCOMPARE(IsSeen(window, "lblNote"), !note.isEmpty());
    QTEST(TextOf(window, "lblStatus"), "status");
    QCOMPARE(window->windowTitle(), QString(u"Case Details (Y00012345)"_s + caption));
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(window->TmrFlash->isActive());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_DistrictCases::anArchivedCaseGivesTheNoteAndNoRows()
{
    const CaseWindow *window = AfterSummary(CaseKind::NonCivil, {archived + u'~'});
    QCOMPARE(TextOf(window, "lblNote"), u"Note: "_s + archived);
    QCOMPARE(TextOf(window, "lblSumNote2"), QString());
    QCOMPARE(window->Tab(CaseTab::Summary).Grid->Rows(), 1);
    QVERIFY(!window->Tab(CaseTab::Summary).Grid->Table().HasHeader);
}

void tst_DistrictCases::theNonCivilRunGoesOnBehindAPhrase()
{
    const DistrictTab &names = districtWindows.front().tabs.front();
    FetchAtOnce(u"NonCivilCaseTabs"_s, {u"Names"_s});
    ExpectSummary(CaseKind::NonCivil, {archived});
    court->Expect(DistrictLineOf(CaseKind::NonCivil, names.word)).Reply(GridDef({u"1~2~"_s}));
    CaseWindow *window = Make(CaseKind::NonCivil);
    Run(window);
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QVERIFY(desk->Folder.Logged(u"NORMAL EXIT - from ProcessSearchReqeusts."_s));
}

void tst_DistrictCases::aNotAssociatedCivilCaseStopsTheRunAtSummary()
{
    FetchAtOnce(u"CivilCaseTabs"_s, CaptionsOfKind(CaseKind::Civil));
    // The next job of the queue is not touched.
    CaseWindow *window = Make(CaseKind::Civil);
    frmQueue::Form().FIFO.AddItem(u"00000000000000000001"_s);
    ExpectSummary(CaseKind::Civil, {notAssociated});
    Run(window);
    QCOMPARE(court->Requests().size(), 1);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{u"00000000000000000001"_s});
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!desk->Folder.Logged(u"NORMAL EXIT - from ProcessSearchReqeusts."_s));
    for (const DistrictTab &tab : DistrictOf(CaseKind::Civil).tabs)
        QVERIFY(!window->Tab(tab.tab).TabDone && window->Tab(tab.tab).TabNotRetrieved);
}

void tst_DistrictCases::aCaseThatWasNotLocatedStopsTheRun_data()
{
    EachWindow();
}

void tst_DistrictCases::aCaseThatWasNotLocatedStopsTheRun()
{
    QFETCH(CaseKind, kind);
    FetchAtOnce(DistrictOf(kind).section.toString(), CaptionsOfKind(kind));
    const CaseWindow *window = Make(kind);
    ExpectSummary(kind, {});
    Run(const_cast<CaseWindow *>(window));
    QCOMPARE(court->Requests().size(), 1);
    QVERIFY(!Global.bSearchInProgress);
}

void tst_DistrictCases::whatWasNotLocatedCanBeFetchedOnDemand()
{
    const DistrictWindow &civil = DistrictOf(CaseKind::Civil);
    CaseWindow *window = AfterSummary(CaseKind::Civil, {notAssociated});
    for (const DistrictTab &tab : civil.tabs)
        court->Expect(DistrictLineOf(CaseKind::Civil, tab.word)).Reply(GridDef({u"1~2~"_s}));
    ClickTab(window, u"Names"_s);
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(Finished(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->Tab(CaseTab::Judgments).TabDone);
}

void tst_DistrictCases::theHeadersOfACase_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QString>("text");
    const auto row = [](CaseKind kind, const char *label, const QString &text) {
        QTest::addRow("%s, %s", DistrictOf(kind).name, label) << kind << QByteArray(label) << text;
    };
    row(CaseKind::NonCivil, "lblName", u"SMITH, JOHN Q"_s);
    row(CaseKind::NonCivil, "lblSex", u"M"_s);
    row(CaseKind::NonCivil, "lblCaseNo", u"Y00012345"_s);
    row(CaseKind::NonCivil, "lblCourtName", u"Southeast District"_s);
    row(CaseKind::NonCivil, "lblCourtType", u"District"_s);
    row(CaseKind::NonCivil, "lblDateFiled", u"01/11/2005"_s);
    row(CaseKind::Civil, "lblCaseTitle", u"SMITH & SONS VS DOE"_s);
    row(CaseKind::Civil, "lblCaseNo", u"Y00012345"_s);
    row(CaseKind::Civil, "lblCourtName", u"Southeast District"_s);
    row(CaseKind::Civil, "lblDateFiled", u"01/11/2005"_s);
    row(CaseKind::Civil, "lblCause", u"Small Claims"_s);
    row(CaseKind::Civil, "lblSuitAmt", u"1,250.00"_s);
}

void tst_DistrictCases::theHeadersOfACase()
{
    QFETCH(CaseKind, kind);
    QFETCH(QByteArray, label);
    const CaseWindow *window = AfterSummary(kind, DistrictSummary(kind));
    QTEST(TextOf(window, label.constData()), "text");
}

void tst_DistrictCases::emptyHeadersAreNotOnFile_data()
{
    theHeadersOfACase_data();
}

void tst_DistrictCases::emptyHeadersAreNotOnFile()
{
    QFETCH(CaseKind, kind);
    QFETCH(QByteArray, label);
    const CaseWindow *window = AfterSummary(
        kind, {u"A~~"_s, u"B~ ~"_s, u"C~~"_s, u"D~~"_s, u"E~~"_s, u"F~~"_s, u"Status~Open~"_s});
    QCOMPARE(TextOf(window, label.constData()), u"Not on File"_s);
}

void tst_DistrictCases::aHeaderLineWithoutAMarkLosesNoCase_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<int>("line");
    for (const DistrictWindow &window : districtWindows) {
        for (const int line : {0, 1, 2, 3, 4, 5})
            QTest::addRow("%s, line %d", window.name, line) << window.kind << line;
    }
}

void tst_DistrictCases::aHeaderLineWithoutAMarkLosesNoCase()
{
    QFETCH(CaseKind, kind);
    QFETCH(int, line);
    QStringList reply = DistrictSummary(kind);
    reply[line] = u"Case 1AN000125"_s;
    const CaseWindow *window = AfterSummary(kind, reply);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(CellsOf(window, CaseTab::Summary).last().mid(0, 2),
             (QStringList{u"Status"_s, u"Open"_s}));
}

void tst_DistrictCases::theTitleAsTheCourtWritesIt_data()
{
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << u"SMITH VS DOE"_s << u"SMITH VS DOE"_s;
    QTest::newRow("one sign") << u"SMITH & SONS"_s << u"SMITH & SONS"_s;
    QTest::newRow("a sign before a letter") << u"AT&T VS DOE"_s << u"AT&T VS DOE"_s;
    QTest::newRow("two signs apart") << u"A & B & C"_s << u"A & B & C"_s;
    QTest::newRow("double blanks") << u"SMITH  VS  DOE"_s << u"SMITH VS DOE"_s;
    QTest::newRow("markup") << u"<b>SMITH</b> VS DOE"_s << u"<b>SMITH</b> VS DOE"_s;
}

void tst_DistrictCases::theTitleAsTheCourtWritesIt()
{
    QFETCH(QString, sent);
    QStringList reply = DistrictSummary(CaseKind::Civil);
    reply[0] = u"Title~"_s + sent + u'~';
    const CaseWindow *window = AfterSummary(CaseKind::Civil, reply);
    QTEST(TextOf(window, "lblCaseTitle"), "shown");
    QTEST(window->lblCaseTitle(), "shown");
}

void tst_DistrictCases::theAmountHasItsSign_data()
{
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("cell");
    QTest::newRow("an amount") << u"1,250.00"_s << u"1,250.00"_s << u"$1,250.00"_s;
    QTest::newRow("nothing") << u"0"_s << u"0"_s << u"$0"_s;
    QTest::newRow("not on file") << QString() << u"Not on File"_s << u"Not on File"_s;
}

void tst_DistrictCases::theAmountHasItsSign()
{
    QFETCH(QString, sent);
    QStringList reply = DistrictSummary(CaseKind::Civil);
    reply[5] = u"Suit Amount~"_s + sent + u'~';
    const CaseWindow *window = AfterSummary(CaseKind::Civil, reply);
    QTEST(TextOf(window, "lblSuitAmt"), "label");
    const QStringList amount = CellsOf(window, CaseTab::Summary).at(4);
    QCOMPARE(amount.at(0), u"Suit Amount: "_s);
    QTEST(amount.at(1), "cell");
}

void tst_DistrictCases::twoPairsInARow()
{
    const CaseWindow *window = AfterSummary(
        CaseKind::NonCivil,
        DistrictSummary(CaseKind::NonCivil, {u"Plea~Guilty~"_s, u"Bail~$100~"_s, u"Fine~$50~"_s}));
    QCOMPARE(CellsOf(window, CaseTab::Summary),
             (QList<QStringList>{{u"Item"_s, u"Description"_s, u"Item"_s, u"Description"_s},
                                 {u"Plea"_s, u"Guilty"_s, u"Bail"_s, u"$100"_s},
                                 {u"Fine"_s, u"$50"_s, QString(), QString()}}));
    QList<double> widths;
    for (const GridColumn &column : window->Tab(CaseTab::Summary).Grid->Table().Columns)
        widths.append(column.Percent);
    QCOMPARE(widths, (QList<double>{15, 35, 15, 35}));
}

void tst_DistrictCases::theRowsOfACivilCase()
{
    const CaseWindow *window = AfterSummary(CaseKind::Civil, DistrictSummary(CaseKind::Civil));
    QCOMPARE(
        CellsOf(window, CaseTab::Summary),
        (QList<QStringList>{{u"Summary Item"_s, u"Item Description"_s, u"Notes"_s},
                            {u"Case Type: "_s, u"Civil"_s, u"WA State District/Municipal Cts."_s},
                            {u"Court Location: "_s, u"Southeast District"_s, QString()},
                            {u"Date Filed: "_s, u"01/11/2005"_s, QString()},
                            {u"Suit Amount: "_s, u"$1,250.00"_s, QString()},
                            {u"Status"_s, u"Open"_s, QString()}}));
}

void tst_DistrictCases::nothingBehindTheHeaders_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<QString>("cell");
    QTest::newRow("non-civil") << CaseKind::NonCivil
                               << u"No Additional Summary Details Available."_s;
    QTest::newRow("civil") << CaseKind::Civil << u"This case was not located."_s;
}

void tst_DistrictCases::nothingBehindTheHeaders()
{
    QFETCH(CaseKind, kind);
    QFETCH(QString, cell);
    const CaseWindow *window = AfterSummary(kind, DistrictSummary(kind, {}));
    QCOMPARE(CellsOf(window, CaseTab::Summary), QList<QStringList>{{cell}});
    // The headers have come, and the run goes on.
    QCOMPARE(TextOf(window, "lblDateFiled"), u"01/11/2005"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_DistrictCases::aSummaryThatFailed_data()
{
    EachWindow();
}

void tst_DistrictCases::aSummaryThatFailed()
{
    QFETCH(CaseKind, kind);
    CaseWindow *window = Make(kind);
    window->SetCourtName(u"Southeast District"_s);
    window->SetDateFiled(u"01/11/2005"_s);
    ExpectSummary(kind, {u"ERROR The court is busy~"_s});
    Run(window);
    QCOMPARE(CellsOf(window, CaseTab::Summary), QList<QStringList>{{u" The court is busy~"_s}});
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(window->lblDateFiled(), u"N/A"_s);
    if (kind == CaseKind::Civil)
        QCOMPARE(window->lblCaseTitle().trimmed(), u"The court is busy~"_s);
    // The court is the one that was asked, and none of the Superior Courts.
    QCOMPARE(window->lblCourtName(), u"Southeast District"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Warnings - See Summary"_s);
    QCOMPARE(TextOf(window, "lblWarning"),
             u"Summary Information Incomplete! Please Retry Search."_s);
    QVERIFY(window->Tab(CaseTab::Summary).TabIncomplete);
}

HALVANE_TEST(tst_DistrictCases)
#include "tst_DistrictCases.moc"
