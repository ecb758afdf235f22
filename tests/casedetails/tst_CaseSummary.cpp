#include "casedetails/SummaryDesk.h"
#include "controls/TabStrip.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QPushButton>
#include <QTimer>

namespace {
const QString notLocated = u"This case was not located."_s;
const QString normalExit = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
const QString invalidExit = u"NORMAL EXIT - INVALID CASE NUMBER in ProcessSearchReqeusts."_s;
const QString summaryExit = u"NORMAL EXIT - from DoSummarySearch()."_s;
} // namespace

/// What the lines of a Summary do to the window, as long as none of them is an error.
class tst_CaseSummary : public SummaryTest
{
    Q_OBJECT
private Q_SLOTS:
    void logLines();
    void linesOfTheReply_data();
    void linesOfTheReply();
    void aNameThatEndsInThereof();
    void washingtonHeader();
    void oregonHeader();
    void idahoHeader();
    void bankruptcyHeader();
    void washingtonRows();
    void stateRows_data();
    void stateRows();
    void bankruptcyRows();
    void firstColumnStandsAgainstTheSecond_data();
    void firstColumnStandsAgainstTheSecond();
    void fewerThanFourLines_data();
    void fewerThanFourLines();
    void stripOfOregonAndIdaho_data();
    void stripOfOregonAndIdaho();
    void bankruptcyTabsAreRetrieved();
    void bankruptcyRequestsInSmallLetters();
    void bankruptcyWithoutTabs();
    void courtUnavailable_data();
    void courtUnavailable();
    void aCaseThatIsNotShownBringsItsSummaryIntoSight_data();
    void aCaseThatIsNotShownBringsItsSummaryIntoSight();
    void aTabThatIsCutAwayDoesNotStayInSight();
    void aTitleThatIsNotPendingStays();
    void idahoIsDownInOtherLetters();
    void caseNotFound_data();
    void caseNotFound();
    void anEmptyReplyEndsTheSearch_data();
    void anEmptyReplyEndsTheSearch();
    void anEmptyReplyOffersTheTabsThatWereNotAskedFor();
    void anEmptyBankruptcyReplyIsNotFound();
    void anInvalidNumberAsALine();
    void labelsNeverShowMarkup_data();
    void whatCameBeforeTheRunIsNoReply();
    void labelsNeverShowMarkup();

private:
    /// A case whose Docket is looked at when the Summary comes.
    frmCaseDetails *lookedAt(const QString &state, const QStringList &reply);
};

void tst_CaseSummary::logLines()
{
    const QString request = SuperiorLine(u"SUMMARY"_s);
    summarised(u"WA"_s, QStringList{u"Searching~King~"_s} + superiorReply());
    const QStringList log = desk->Folder.Log();
    QStringList expected{u"Retrieving Summary .."_s, u"SendReq: "_s + request,
                         u"Current Response: --> Searching~King~ 0"_s};
    for (const QString &line : superiorReply())
        expected += u"Current Response: --> "_s + line + u" 0"_s;
    expected += {u"All Responses For SUMMARY were Received: "_s + request, summaryExit, normalExit};
    const qsizetype first = log.indexOf(expected.first());
    QCOMPARE(log.mid(first), expected);
}

void tst_CaseSummary::linesOfTheReply_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("kept"); ///< "" when the line is read over
    QTest::newRow("data") << u"Status:~Active~"_s << u"Status:~Active~"_s;
    QTest::newRow("trimmed") << u"  Status:~Active~ "_s << u"Status:~Active~"_s;
    QTest::newRow("progress") << u"SEARCHING~King~"_s << QString();
    QTest::newRow("progress in small letters") << u"searching"_s << QString();
    QTest::newRow("an error only in capitals") << u"Error~x~"_s << u"Error~x~"_s;
    QTest::newRow("a question only in capitals") << u"UserQuestion~"_s << u"UserQuestion~"_s;
    QTest::newRow("an end only behind") << u"EOF~x~"_s << u"EOF~x~"_s;
    QTest::newRow("an end only in capitals") << u"x eof~"_s << u"x eof~"_s;
}

void tst_CaseSummary::linesOfTheReply()
{
    QFETCH(QString, line);
    QFETCH(QString, kept);
    QStringList reply = superiorReply();
    reply.insert(4, line);
    QStringList lines = superiorReply().first(6);
    if (!kept.isEmpty())
        lines.insert(4, kept);
    const frmCaseDetails *window = summarised(u"WA"_s, reply);
    QCOMPARE(window->lboxResponses.Lines(), lines);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

/// Only small letters could be distinguished from the mark, and they are no mark anyway.
void tst_CaseSummary::aNameThatEndsInThereof()
{
    QStringList reply = superiorReply();
    reply.insert(4, u"Owner:~the heirs thereof~"_s);
    reply.last() = u"Owner:~THE HEIRS THEREOF~"_s; // ends as the mark does, and so ends the reply
    const frmCaseDetails *window = summarised(u"WA"_s, reply);
    QCOMPARE(window->lboxResponses.ListCount(), 7);
    QCOMPARE(window->lboxResponses.List(4), u"Owner:~the heirs thereof~"_s);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
}

void tst_CaseSummary::washingtonHeader()
{
    const frmCaseDetails *window = summarised(u"WA"_s, superiorReply());
    QCOMPARE(TextOf(window, "lblTopFrameCaseType"), u"Criminal"_s);
    QCOMPARE(TextOf(window, "lblCourtName"), u"King Co Superior Ct"_s);
    QCOMPARE(window->windowTitle(), u"02-1-00123-4 -- King Co Superior Ct"_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"03/04/2002"_s);
    // Every "&" is there once, and none of them is taken for the sign of an access key.
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"A & B VS C && D"_s);
    QCOMPARE(window->findChild<QLabel *>(u"lblCaseTitle"_s)->buddy(), nullptr);
}

void tst_CaseSummary::oregonHeader()
{
    const frmCaseDetails *window = summarised(u"OR"_s, stateReply());
    QCOMPARE(TextOf(window, "lblCourtName"), u"Oregon State -  Ada County"_s);
    QCOMPARE(TextOf(window, "lblTopFrameCaseType"), u"N/A"_s);
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"STATE & PEOPLE VS SMITH"_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"05/08/1998"_s);
    QCOMPARE(window->windowTitle(), u"Case Details (CV0100001) -- Oregon State -  Ada County"_s);
}

void tst_CaseSummary::idahoHeader()
{
    const frmCaseDetails *window = summarised(u"ID"_s, stateReply());
    QCOMPARE(TextOf(window, "lblCourtName"), u" Ada County"_s);
    QCOMPARE(TextOf(window, "lblTopFrameCaseType"), u"Criminal"_s);
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"STATE & PEOPLE VS SMITH"_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"05/08/1998"_s);
    QCOMPARE(window->windowTitle(), u"Case Details (CV-2001-1) -- Ada County"_s);
}

void tst_CaseSummary::bankruptcyHeader()
{
    QStringList reply = bankruptcyReply();
    reply.removeAt(1);
    const frmCaseDetails *window = summarised(u"WAWBK"_s, reply);
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"SMITH & DOE (Chapter 7)"_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"03/16/1999"_s);
    QCOMPARE(TextOf(window, "lblTopFrameCaseType"), u"Bankruptcy"_s);
    QCOMPARE(window->windowTitle(), u"Case Details (99-20077)"_s);
}

void tst_CaseSummary::washingtonRows()
{
    QStringList reply = superiorReply();
    reply.insert(5, u"orig cause: x~Burglary~"_s);
    reply.insert(6, u" "_s); // trimmed, nothing is left of it
    reply.insert(7, u"Judge"_s);
    const frmCaseDetails *window = summarised(u"WA"_s, reply);
    QCOMPARE(summaryCells(window), (QList<QStringList>{{u"Item"_s, u"Description"_s},
                                                       {u"Cause:"_s, u"Theft"_s},
                                                       {u"Cause:"_s, u"Burglary"_s},
                                                       {u"Judge"_s, QString()},
                                                       {u"Status:"_s, u"Active"_s}}));
    const QList<GridColumn> columns = window->Tab(CaseTab::Summary).Grid->Table().Columns;
    QCOMPARE(columns[0].Percent, 30.0);
    QCOMPARE(columns[1].Percent, 70.0);
}

void tst_CaseSummary::stateRows_data()
{
    QTest::addColumn<QString>("state");
    QTest::newRow("Oregon") << u"OR"_s;
    QTest::newRow("Idaho") << u"ID"_s;
}

void tst_CaseSummary::stateRows()
{
    QFETCH(QString, state);
    const frmCaseDetails *window = summarised(state, stateReply());
    QCOMPARE(summaryCells(window), (QList<QStringList>{{u"Item"_s, u"Description"_s},
                                                       {u"Court: "_s, u" Ada County"_s},
                                                       {u"Case Number: "_s, u"CR-1998-0002546"_s},
                                                       {u"Title: "_s, u"STATE & PEOPLE VS SMITH"_s},
                                                       {u"Status: "_s, u"Closed"_s},
                                                       {u"Judge: "_s, QString()},
                                                       {u"Filed: "_s, u"05/08/1998"_s}}));
}

void tst_CaseSummary::bankruptcyRows()
{
    QStringList reply = bankruptcyReply();
    reply.removeAt(1);
    const frmCaseDetails *window = summarised(u"WAWBK"_s, reply);
    QCOMPARE(summaryCells(window), (QList<QStringList>{{u"Item"_s, u"Description"_s},
                                                       {u"Case Title: "_s, u"SMITH & DOE"_s},
                                                       {u"Chapter: "_s, u"7"_s},
                                                       {u"Date Filed: "_s, u"03/16/1999"_s},
                                                       {u"Judge: "_s, QString()}}));
}

void tst_CaseSummary::firstColumnStandsAgainstTheSecond_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<bool>("right");
    QTest::newRow("items") << u"WA"_s << superiorReply() << true;
    QTest::newRow("a message") << u"WA"_s << superiorReply().mid(4) << false;
}

void tst_CaseSummary::firstColumnStandsAgainstTheSecond()
{
    QFETCH(QString, state);
    QFETCH(QStringList, reply);
    QFETCH(bool, right);
    const frmCaseDetails *window = summarised(state, reply);
    const QModelIndex cell = window->Tab(CaseTab::Summary).Grid->model()->index(0, 0);
    const auto alignment = cell.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    QCOMPARE(alignment.testFlag(Qt::AlignRight), right);
}

void tst_CaseSummary::fewerThanFourLines_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("reply");
    const QStringList end{u"EOF~"_s};
    QTest::newRow("Superior") << u"WA"_s << superiorReply().first(3) + end;
    QTest::newRow("Oregon") << u"OR"_s << stateReply().first(3) + end;
    QTest::newRow("Idaho") << u"ID"_s << stateReply().first(3) + end;
    QTest::newRow("bankruptcy") << u"WAWBK"_s << bankruptcyReply().first(3) + end;
    QTest::newRow("several only at a bankruptcy court")
        << u"WA"_s << QStringList{u"MULTIPLE"_s, u"x~RETRIEVECOMMAND=y~z~"_s} + end;
}

void tst_CaseSummary::fewerThanFourLines()
{
    QFETCH(QString, state);
    QFETCH(QStringList, reply);
    const frmCaseDetails *window = summarised(state, reply);
    QCOMPARE(summaryCells(window), QList<QStringList>{{notLocated}});
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(desk->Folder.Logged(normalExit));
}

void tst_CaseSummary::stripOfOregonAndIdaho_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("tabs");
    const QString all = u"SENTENCE finance Accounting CHARGES judgments docket Names"_s;
    QTest::newRow("Oregon, all") << u"OR"_s << all
                                 << QStringList{u"Summary"_s,   u"Names"_s,   u"Docket"_s,
                                                u"Judgments"_s, u"Charges"_s, u"Accounting"_s,
                                                u"Finance"_s,   u"Sentence"_s};
    QTest::newRow("Oregon, two") << u"OR"_s << u"x~FINANCE~names~"_s
                                 << QStringList{u"Summary"_s, u"Names"_s, u"Finance"_s};
    QTest::newRow("Oregon, none") << u"OR"_s << u"SUMMARY"_s << QStringList{u"Summary"_s};
    QTest::newRow("Idaho, all") << u"ID"_s << all
                                << QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s,
                                               u"Judgments"_s, u"Charges"_s};
    QTest::newRow("Idaho, none") << u"ID"_s << u"x"_s << QStringList{u"Summary"_s};
}

void tst_CaseSummary::stripOfOregonAndIdaho()
{
    QFETCH(QString, state);
    QFETCH(QString, line);
    QFETCH(QStringList, tabs);
    QStringList reply = stateReply();
    reply.first() = line;
    const frmCaseDetails *window = summarised(state, reply);
    QCOMPARE(CaptionsOf(window), tabs);
    QCOMPARE(window->TabCaptions(), tabs);
}

void tst_CaseSummary::bankruptcyTabsAreRetrieved()
{
    court->Expect(requestOf(u"WAWBK"_s)).Reply(bankruptcyReply());
    court->Expect(u"BKRPT~NAMES~99-20077~"_s).Reply(TableForm({u"1~Doe~"_s}));
    court->Expect(u"BKRPT~DOCKET~99-20077~"_s).Reply(TableForm({u"2~Filed~"_s}));
    frmCaseDetails *window = Bankruptcy(requestOf(u"WAWBK"_s));
    Run(window);
    QCOMPARE(CaptionsOf(window), (QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s}));
    // The line of the Summary is gone, those of the definition are there, in their order.
    QCOMPARE(window->lboxTabReqQueue.Lines(),
             (QStringList{u"BKRPT~SUMMARY~99-20077~"_s, u"BKRPT~CLAIMS SUMMARY~99-20077~"_s,
                          u"BKRPT~NAMES~99-20077~"_s, u"BKRPT~DOCKET~99-20077~"_s}));
    QCOMPARE(summaryCells(window).size(), 5);
    QCOMPARE(CellsOf(window, CaseTab::Names).last(), (QStringList{u"1"_s, u"Doe"_s}));
    QCOMPARE(CellsOf(window, CaseTab::Docket).last(), (QStringList{u"2"_s, u"Filed"_s}));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

/// A line that makes a tab is the line of this tab, however it is written.
void tst_CaseSummary::bankruptcyRequestsInSmallLetters()
{
    QStringList reply = bankruptcyReply();
    reply[1] = u"TABDEF/RETRIEVECOMMAND=bkrpt~docket~99-20077~/"_s;
    court->Expect(requestOf(u"WAWBK"_s)).Reply(reply);
    court->Expect(u"bkrpt~docket~99-20077~"_s).Reply(TableForm({u"2~Filed~"_s}));
    frmCaseDetails *window = Bankruptcy(requestOf(u"WAWBK"_s));
    Run(window);
    QCOMPARE(CaptionsOf(window), (QStringList{u"Summary"_s, u"Docket"_s}));
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
}

void tst_CaseSummary::bankruptcyWithoutTabs()
{
    QStringList reply = bankruptcyReply();
    reply[1] = u"TABDEF/Summary/Names/"_s;
    const frmCaseDetails *window = summarised(u"WAWBK"_s, reply);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(window->lboxTabReqQueue.ListCount(), 0);
}

void tst_CaseSummary::courtUnavailable_data()
{
    QTest::addColumn<QString>("state");
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s, u"WAWBK"_s})
        QTest::newRow(qPrintable(state)) << state;
}

void tst_CaseSummary::courtUnavailable()
{
    QFETCH(QString, state);
    court->Expect(requestOf(state)).Reply({u"The court is currently unavailable"_s, u"EOF~"_s});
    frmCaseDetails *window = windowOf(state);
    window->SetCaseTitle(u" PENDING .. "_s);
    Run(window);
    QCOMPARE(summaryCells(window),
             QList<QStringList>{{u"This Court Is Currently Unavailable, Please Try Later"_s}});
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"PENDING .."_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"N/A"_s);
    QCOMPARE(TextOf(window, "lblTopFrameCaseType"), u"N/A"_s);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

frmCaseDetails *tst_CaseSummary::lookedAt(const QString &state, const QStringList &reply)
{
    for (const QString &section : {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s})
        FetchAtOnce(section, {});
    court->Expect(requestOf(state)).Reply({});
    frmCaseDetails *window = windowOf(state);
    desk->When([this] { return court->Requests().size() == 1; },
               [this, window, reply] {
                   ClickTab(window, u"Docket"_s);
                   QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
                   court->SendTokens(reply);
               });
    Run(window);
    return window;
}

void tst_CaseSummary::aCaseThatIsNotShownBringsItsSummaryIntoSight_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("line");
    QTest::newRow("the court is down") << u"WA"_s << u"The court is currently unavailable"_s;
    QTest::newRow("an error") << u"WA"_s << u"ERROR~The roof is leaking~"_s;
    QTest::newRow("an invalid number") << u"WA"_s << u"ERROR~1 is not a valid case number~"_s;
    QTest::newRow("not on file") << u"OR"_s << u"ERROR~Requested case is not on file~"_s;
}

void tst_CaseSummary::aCaseThatIsNotShownBringsItsSummaryIntoSight()
{
    QFETCH(QString, state);
    QFETCH(QString, line);
    const frmCaseDetails *window = lookedAt(state, {line, u"EOF~"_s});
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
}

void tst_CaseSummary::aTabThatIsCutAwayDoesNotStayInSight()
{
    QStringList reply = stateReply();
    reply.first() = u"SUMMARY~Names~Docket~"_s;
    const frmCaseDetails *window = lookedAt(u"OR"_s, reply);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QCOMPARE(window->findChild<TabStrip *>(u"TabStrip1"_s)->SelectedCaption(), u"Docket"_s);
    cleanup();
    init();
    reply.first() = u"SUMMARY~Names~"_s;
    window = lookedAt(u"OR"_s, reply);
    QCOMPARE(window->findChild<TabStrip *>(u"TabStrip1"_s)->SelectedCaption(), u"Summary"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
}

void tst_CaseSummary::aTitleThatIsNotPendingStays()
{
    court->Expect(requestOf(u"ID"_s)).Reply({u"currently unavailable"_s, u"EOF~"_s});
    frmCaseDetails *window = windowOf(u"ID"_s);
    window->SetCaseTitle(u" A VS B "_s);
    window->SetDateFiled(u"01/01/2001"_s);
    Run(window);
    QCOMPARE(TextOf(window, "lblCaseTitle"), u" A VS B "_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"01/01/2001"_s);
}

void tst_CaseSummary::idahoIsDownInOtherLetters()
{
    const frmCaseDetails *window =
        summarised(u"ID"_s, {u"IDAHO Courts Are Currently Unavailable"_s, u"EOF~"_s});
    QCOMPARE(summaryCells(window),
             QList<QStringList>{{u"Idaho Courts are Currently Unavailable, Please Try Later"_s}});
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
}

void tst_CaseSummary::caseNotFound_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<QString>("courtName");
    const QString oregon = u"Baker County, Oregon Circuit Courts"_s;
    const QString idaho = u"Ada County, Idaho District Courts"_s;
    // The first two end the reply before any end mark.
    const QStringList requested{u"x"_s, u"Error~Requested Case is not on file~"_s};
    const QStringList request{u"-ERROR~REQUEST CASE IS NOT ON FILE~-"_s};
    const QStringList line{u"Case Not Found"_s, u"EOF~"_s};
    QTest::newRow("Oregon, requested") << u"OR"_s << requested << oregon;
    QTest::newRow("Oregon, request") << u"OR"_s << request << oregon;
    QTest::newRow("Oregon, as a line") << u"OR"_s << line << oregon;
    QTest::newRow("Idaho, requested") << u"ID"_s << requested << idaho;
    QTest::newRow("Idaho not on file") << u"ID"_s << request << idaho;
    QTest::newRow("Idaho, as a line") << u"ID"_s << line << idaho;
}

void tst_CaseSummary::caseNotFound()
{
    QFETCH(QString, state);
    QFETCH(QStringList, reply);
    QFETCH(QString, courtName);
    court->Expect(requestOf(state)).Reply(reply);
    frmCaseDetails *window = windowOf(state);
    window->SetCaseTitle(u"Pending .. "_s);
    Run(window);
    QCOMPARE(summaryCells(window), QList<QStringList>{{notLocated}});
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(TextOf(window, "lblCourtName"), courtName);
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"Pending .."_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"N/A"_s);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QVERIFY(!window->Tab(CaseTab::Summary).TabIncomplete);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(isHidden(window, "lblWarning"));
    const QStringList log = desk->Folder.Log();
    QCOMPARE(log.mid(log.size() - 3),
             (QStringList{u"All Responses For SUMMARY were Received: "_s + requestOf(state),
                          summaryExit, normalExit}));
}

void tst_CaseSummary::anEmptyReplyEndsTheSearch_data()
{
    QTest::addColumn<QString>("state");
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s})
        QTest::newRow(qPrintable(state)) << state;
}

void tst_CaseSummary::anEmptyReplyEndsTheSearch()
{
    QFETCH(QString, state);
    const frmCaseDetails *window = summarised(state, {u"SEARCHING~"_s, u"EOF~"_s});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped. Case Not Located."_s);
    QVERIFY(window->windowTitle().endsWith(u") - This Case Was Not Located!"));
    QCOMPARE(summaryCells(window), QList<QStringList>{{notLocated}});
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!window->tmrBlink->isActive());
    QVERIFY(!isHidden(window, "lblStatus"));
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
    QVERIFY(window->TmrFlash->isActive());
    QCOMPARE(window->TmrFlash->interval(), 500);
    QCOMPARE(court->Requests(), QStringList{requestOf(state)});
}

void tst_CaseSummary::anEmptyReplyOffersTheTabsThatWereNotAskedFor()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(requestOf(u"WA"_s)).Reply({u"EOF~"_s});
    frmCaseDetails *window = windowOf(u"WA"_s);
    Run(window);
    for (const QString &caption : {u"Names"_s, u"Docket"_s, u"Judgments"_s}) {
        ClickTab(window, caption);
        QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    }
}

void tst_CaseSummary::anEmptyBankruptcyReplyIsNotFound()
{
    const frmCaseDetails *window = summarised(u"WAWBK"_s, {u"EOF~"_s});
    QCOMPARE(window->lboxResponses.Lines(), QStringList{u"Case Not Found"_s});
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"N/A"_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"N/A"_s);
    QCOMPARE(summaryCells(window), QList<QStringList>{{notLocated}});
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseSummary::anInvalidNumberAsALine()
{
    const QString line = u"02-1 is Not a Valid Case Number here"_s;
    const frmCaseDetails *window = summarised(u"WA"_s, {line, u"x~y~"_s, u"EOF~"_s});
    QCOMPARE(summaryCells(window), QList<QStringList>{{line}});
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QVERIFY(desk->Folder.Logged(invalidExit));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete - Case Number Invalid"_s);
    QVERIFY(isHidden(window, "lblWarning"));
}

void tst_CaseSummary::labelsNeverShowMarkup_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("reply");
    QTest::newRow("Superior") << u"WA"_s << superiorReply();
    QTest::newRow("Idaho") << u"ID"_s << stateReply();
    QStringList bankruptcy = bankruptcyReply();
    bankruptcy.removeAt(1);
    QTest::newRow("bankruptcy") << u"WAWBK"_s << bankruptcy;
    QTest::newRow("an error") << u"WA"_s << QStringList{u"ERROR&~it broke~"_s, u"EOF~"_s};
}

/// What looks like markup in a reply is text like any other.
/// The last job may have left tokens behind.
void tst_CaseSummary::whatCameBeforeTheRunIsNoReply()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(requestOf(u"WA"_s)).Reply(superiorReply());
    frmCaseDetails *window = windowOf(u"WA"_s);
    Global.strRecvBuffer.Append("|ERROR~of another case~||EOF~|");
    Run(window);
    QCOMPARE(summaryCells(window).size(), 3);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
}

void tst_CaseSummary::labelsNeverShowMarkup()
{
    QFETCH(QString, state);
    QFETCH(QStringList, reply);
    for (QString &line : reply)
        line.replace(u"&"_s, u"<img src='http://192.0.2.1/x.png'><b>&amp;</b>"_s);
    const frmCaseDetails *window = summarised(state, reply);
    QVERIFY(TextOf(window, "lblCaseTitle").contains(u"<b>&amp;</b>"));
    const QList<QLabel *> labels = window->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->objectName()));
        QVERIFY2(!label->toolTip().contains(u'<'), qPrintable(label->objectName()));
    }
    for (const FlexGrid *grid : window->findChildren<FlexGrid *>()) {
        for (int role : {int(Qt::ToolTipRole), int(Qt::WhatsThisRole), int(Qt::StatusTipRole)})
            QVERIFY(!grid->model()->index(0, 0).data(role).toString().contains(u'<'));
    }
}

HALVANE_TEST(tst_CaseSummary)
#include "tst_CaseSummary.moc"
