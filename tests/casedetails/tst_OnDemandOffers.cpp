// What nobody has asked for when a run is over offers itself, for whatever reason it was left out.

#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "session/frmLogin.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QTest>

namespace {
const QString loginQuestion =
    u"This Search Cannot be Started!\r\nThis is because you are not currently Logged-In to the "
    "Halvane Server.\r\n\r\nDo you want to Login Now?"_s;
const QString loginTitle = u"Cannot Perform Search! Not Logged In to Halvane"_s;
const QString panel = u"frameTabs_8"_s;
const QString stoppedStatus = u"Search Stopped By User .. "_s;
const QString bankruptcyLine = u"BKRPT~CASE~1~"_s;
const QString bankruptcyNames = u"BKRPT~NAMES~1~"_s;
const QString bankruptcyDocket = u"BKRPT~DOCKET~1~"_s;

/// The docket is named ahead of the names.
QStringList bankruptcySummary()
{
    return {u"Case Title~SMITH~"_s, u"Chapter~7~"_s, u"Date Filed~03/04/2002~"_s,
            u"TABDEF^RETRIEVECOMMAND=BKRPT~DOCKET~1~^RETRIEVECOMMAND=BKRPT~NAMES~1~^"_s, u"EOF~"_s};
}
} // namespace

class tst_OnDemandOffers : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void aCaseStoppedWhilePending_data();
    void aCaseStoppedWhilePending();
    void aBankruptcyCaseStoppedWhilePending_data();
    void aBankruptcyCaseStoppedWhilePending();
    void aSummaryThatAStopHasCutShort_data();
    void aSummaryThatAStopHasCutShort();
    void aBankruptcySummaryThatAStopHasCutShort();
    void aTabInSightIsOfferedAtOnce();
    void aStopLeavesTheDocumentsInSight();
    void aTabThatFailedInSightStaysThere();
    void whatABankruptcyCaseNamesBehindItsDocket();
    void whatABankruptcyCaseNamesBehindItsDocketInSight();
    void searchNowNotLoggedIn_data();
    void searchNowNotLoggedIn();

private:
    /// Stops a window that waits for its turn.
    static void stop(CaseWindow *window)
    {
        Global.bShowAlerts = false;
        ButtonOf(window, "cmdStopSearching")->click();
    }
    /// Lets it tick while another job has the link.
    static void tickOnce(CaseWindow *window)
    {
        Global.bSearchInProgress = true;
        Begin(window);
        QTRY_COMPARE(window->tmrBlink->interval(), 900);
        window->Timer1->stop();
        Global.bSearchInProgress = false;
    }
    /// A case that is stopped in its Summary while the user looks at this tab.
    CaseWindow *stoppedWithInSight(CaseTab tab, const QStringList &fetched);
};

CaseWindow *tst_OnDemandOffers::stoppedWithInSight(CaseTab tab, const QStringList &fetched)
{
    FetchAtOnce(u"CaseSearchTabs"_s, fetched);
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({});
    CaseWindow *window = Superior();
    desk->When([this] { return court->Requests().size() == 1; },
               [this, window, tab] {
                   ClickTab(window, CaptionOf(tab));
                   QCOMPARE(ShownFrame(window), FrameOf(tab));
                   window->StopRequested = true;
                   court->SendTokens(SuperiorSummary() + QStringList{u"EOF~"_s});
               });
    Run(window);
    if (TextOf(window, "lblStatus") != u"Search Stopped by User ..")
        qFatal("not stopped");
    return window;
}

void tst_OnDemandOffers::aCaseStoppedWhilePending_data()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<bool>("ticked");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        QTest::addRow("%s, before its first tick", caseWindowNames.at(i))
            << static_cast<CaseWindowKind>(i) << false;
        QTest::addRow("%s, later", caseWindowNames.at(i)) << static_cast<CaseWindowKind>(i) << true;
    }
}

void tst_OnDemandOffers::aCaseStoppedWhilePending()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(bool, ticked);
    // Every tab would have been fetched at once.
    QStringList captions;
    for (const CaseTab tab : TabsOf(kind))
        captions.append(CaptionOf(tab));
    for (const QString &section : {u"CaseSearchTabs"_s, u"CivilCaseTabs"_s, u"NonCivilCaseTabs"_s})
        FetchAtOnce(section, captions);
    CaseWindow *window = MakeCase(kind);
    if (ticked)
        tickOnce(window);
    stop(window);
    QCOMPARE(TextOf(window, "lblStatus"), stoppedStatus);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s} + captions);
    QCOMPARE(ShownFrame(window), panel);
    for (const CaseTab tab : QList<CaseTab>{CaseTab::Summary} + TabsOf(kind)) {
        QVERIFY(window->Tab(tab).TabNotRetrieved);
        ClickTab(window, CaptionOf(tab));
        QCOMPARE(ShownFrame(window), panel);
        QVERIFY(BoxOf(window, tab)->isChecked());
    }
    QVERIFY(CommandsEnabled(window));
    Tick(window, {CaseTab::Summary, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply(SummaryReplyOf(kind));
    ExpectTab(kind, CaseTab::Docket);
    desk->ConnectTo(*court);
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone && window->Tab(CaseTab::Docket).TabDone);
}

void tst_OnDemandOffers::aBankruptcyCaseStoppedWhilePending_data()
{
    QTest::addColumn<bool>("ticked");
    QTest::newRow("before its first tick") << false;
    QTest::newRow("later") << true;
}

void tst_OnDemandOffers::aBankruptcyCaseStoppedWhilePending()
{
    QFETCH(bool, ticked);
    CaseWindow *window = Bankruptcy(bankruptcyLine);
    if (ticked)
        tickOnce(window);
    stop(window);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(ShownFrame(window), panel);
    court->Expect(bankruptcyLine).Reply(bankruptcySummary());
    desk->ConnectTo(*court);
    SearchNowToTheEnd(window);
    QCOMPARE(CaptionsOf(window), (QStringList{u"Summary"_s, u"Docket"_s, u"Names"_s}));
    QCOMPARE(ShownFrame(window), FrameOf(CaseTab::Summary));
    // A stop of that window later on takes none of its tabs away.
    ClickTab(window, u"Names"_s);
    SearchNow(window);
    stop(window);
    QCOMPARE(CaptionsOf(window), (QStringList{u"Summary"_s, u"Docket"_s, u"Names"_s}));
    QVERIFY(window->Tab(CaseTab::Summary).TabDone
            && !window->Tab(CaseTab::Summary).TabNotRetrieved);
}

void tst_OnDemandOffers::aSummaryThatAStopHasCutShort_data()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<int>("lines");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        for (const int lines : {0, 1, 3})
            QTest::addRow("%s, %d lines", caseWindowNames.at(i), lines)
                << static_cast<CaseWindowKind>(i) << lines;
    }
    QTest::newRow("civil, the header alone") << CaseWindowKind::Civil << 6;
}

/// It says nothing of the case: not that there is none, and not that this is all of it.
void tst_OnDemandOffers::aSummaryThatAStopHasCutShort()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(int, lines);
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply(SummaryReplyOf(kind).first(lines));
    court->Expect(u"¦STOP"_s).Reply({u"EOF~"_s});
    CaseWindow *window = MakeCase(kind);
    desk->When([this] { return court->Requests().size() == 1; }, [window] { stop(window); });
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
    QVERIFY(!window->windowTitle().contains(u"Not Located"));
    QVERIFY(!window->Tab(CaseTab::Summary).TabDone);
    QVERIFY(CaptionsOf(window).size() > 1);
    QCOMPARE(ShownFrame(window), panel);
    Tick(window, {CaseTab::Summary});
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply(SummaryReplyOf(kind));
    SearchNowToTheEnd(window);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(ShownFrame(window), FrameOf(CaseTab::Summary));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_OnDemandOffers::aBankruptcySummaryThatAStopHasCutShort()
{
    court->Expect(bankruptcyLine).Reply({});
    court->Expect(u"BKRPT~STOP~"_s).Reply({u"EOF~"_s});
    CaseWindow *window = Bankruptcy(bankruptcyLine);
    desk->When([this] { return court->Requests().size() == 1; }, [window] { stop(window); });
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
    QVERIFY(TextOf(window, "lblCaseTitle") != u"N/A");
    QCOMPARE(ShownFrame(window), panel);
    court->Expect(bankruptcyLine).Reply(bankruptcySummary());
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"SMITH (Chapter 7)"_s);
}

/// Nobody looks at an empty grid and takes it for the whole.
void tst_OnDemandOffers::aTabInSightIsOfferedAtOnce()
{
    CaseWindow *window = stoppedWithInSight(CaseTab::Names, {u"Names"_s, u"Docket"_s});
    QCOMPARE(ShownFrame(window), panel);
    QVERIFY(BoxOf(window, CaseTab::Names)->isChecked());
    QVERIFY(CommandsEnabled(window));
}

/// A stop does not leave their list out.
void tst_OnDemandOffers::aStopLeavesTheDocumentsInSight()
{
    const CaseWindow *window = stoppedWithInSight(CaseTab::Documents, {u"Documents"_s});
    QVERIFY(!window->Tab(CaseTab::Documents).TabNotRetrieved);
    QCOMPARE(ShownFrame(window), FrameOf(CaseTab::Documents));
}

/// It has something to be read, and asks when it is clicked.
void tst_OnDemandOffers::aTabThatFailedInSightStaysThere()
{
    const CaseWindowKind kind = CaseWindowKind::Superior;
    CaseWindow *window = AfterFirstRun(kind, {}, {u"Names"_s});
    AnswerPrompt(false);
    ClickTab(window, u"Names"_s);
    QCOMPARE(ShownFrame(window), FrameOf(CaseTab::Names));
    ButtonOf(window, "cmdSearchNow")->click();
    stop(window);
    QCOMPARE(ShownFrame(window), FrameOf(CaseTab::Names));
    AnswerPrompt(true);
    ClickTab(window, u"Names"_s);
    QCOMPARE(ShownFrame(window), panel);
}

void tst_OnDemandOffers::whatABankruptcyCaseNamesBehindItsDocket()
{
    court->Expect(bankruptcyLine).Reply(bankruptcySummary());
    court->Expect(bankruptcyDocket).Reply(TableForm({u"1~2~"_s}));
    CaseWindow *window = Bankruptcy(bankruptcyLine);
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->Tab(CaseTab::Names).TabNotRetrieved);
    QVERIFY(!window->Tab(CaseTab::Docket).TabNotRetrieved);
    ClickTab(window, u"Names"_s);
    QCOMPARE(ShownFrame(window), panel);
    QVERIFY(BoxOf(window, CaseTab::Names)->isChecked());
    QVERIFY(!BoxOf(window, CaseTab::Docket)->isEnabled());
    court->Expect(bankruptcyNames).Reply(TableForm({u"1~2~"_s}));
    SearchNowToTheEnd(window);
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QCOMPARE(ShownFrame(window), FrameOf(CaseTab::Names));
}

void tst_OnDemandOffers::whatABankruptcyCaseNamesBehindItsDocketInSight()
{
    court->Expect(bankruptcyLine).Reply(bankruptcySummary());
    court->Expect(bankruptcyDocket).Reply({});
    CaseWindow *window = Bankruptcy(bankruptcyLine);
    desk->When([this] { return court->Requests().size() == 2; },
               [this, window] {
                   ClickTab(window, u"Names"_s);
                   QCOMPARE(ShownFrame(window), FrameOf(CaseTab::Names));
                   court->SendTokens(TableForm({u"1~2~"_s}));
               });
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(ShownFrame(window), panel);
}

void tst_OnDemandOffers::searchNowNotLoggedIn_data()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<bool>("login");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        QTest::addRow("%s, no", caseWindowNames.at(i)) << static_cast<CaseWindowKind>(i) << false;
        QTest::addRow("%s, yes", caseWindowNames.at(i)) << static_cast<CaseWindowKind>(i) << true;
    }
}

void tst_OnDemandOffers::searchNowNotLoggedIn()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(bool, login);
    CaseWindow *window = AfterFirstRun(kind, {}, {u"Names"_s});
    ClickTab(window, u"Docket"_s);
    const QString warning = TextOf(window, "lblWarning");
    QCOMPARE(warning, u"Names Information Incomplete! Click Tab to Retry."_s);
    const QString key = window->txtMasterKey;
    Global.bLoggedIn = false;
    Global.bStopRequested = true;
    desk->Boxes.Expect(loginQuestion, loginTitle, MsgIcon::Exclamation,
                       login ? MsgAnswer::Yes : MsgAnswer::No);
    if (login)
        desk->AnswerModalLogin(true);
    ButtonOf(window, "cmdSearchNow")->click();
    // The login was over before the click was; what was wanted is for the user to start anew.
    QVERIFY(desk->AllHappened());
    QVERIFY(!frmLogin::IsLoaded());
    QCOMPARE(TextOf(window, "lblWarning"), login ? QString() : warning);
    QVERIFY(!Global.bStopRequested);
    QCOMPARE(window->txtMasterKey, key);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(CommandsEnabled(window));
    QVERIFY(!window->TmrSearchOnDemand->isActive());
    QVERIFY(!desk->Folder.Logged(u"Search On Demand Complete"_s));
}

HALVANE_TEST(tst_OnDemandOffers)
#include "tst_OnDemandOffers.moc"
