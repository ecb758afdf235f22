#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QDialog>
#include <QPushButton>
#include <QTest>

// Later runs of a case whose Summary has not come in the first, or says what the tabs are.

namespace {
const QString bankruptcyLine = u"BKRPT~SUMMARY~WAW~99-20077~"_s;
const QString bankruptcyNames = u"BKRPT~NAMES~WAW~1~"_s;
const QString bankruptcyDocket = u"BKRPT~DOCKET~WAW~1~"_s;
QStringList bankruptcySummary()
{
    return {u"TABDEF^RETRIEVECOMMAND=BKRPT~SUMMARY~WAW~1~^RETRIEVECOMMAND=BKRPT~NAMES~WAW~1~^"
            "RETRIEVECOMMAND=BKRPT~DOCKET~WAW~1~^"_s,
            u"Case Title~SMITH, JOHN~"_s,
            u"Chapter~7~"_s,
            u"Date Filed~01/02/1999~"_s,
            u"Judge~DOE~"_s,
            u"EOF~"_s};
}
} // namespace

class tst_OnDemandSummary : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void aSummaryThatCameNotBringsItsTabsBack_data();
    void aSummaryThatCameNotBringsItsTabsBack();
    void aSummaryThatFailsAgain();
    void aSummaryKeepsTheAnswerThatItHas_data();
    void aSummaryKeepsTheAnswerThatItHas();
    void aSummaryThatDoesNotComeTakesTheOtherBoxesAlong_data();
    void aSummaryThatDoesNotComeTakesTheOtherBoxesAlong();
    void aSummaryThatSaysThatThereIsNoCase();
    void nothingIsAskedBehindASummaryWithoutACase_data();
    void nothingIsAskedBehindASummaryWithoutACase();
    void aSummaryOfACaseThatWasStoppedBeforeItsTurn_data();
    void aSummaryOfACaseThatWasStoppedBeforeItsTurn();
    void aBankruptcySummary();
    void aBankruptcyTab();
};

void tst_OnDemandSummary::aSummaryThatCameNotBringsItsTabsBack_data()
{
    EachCaseWindow();
}

void tst_OnDemandSummary::aSummaryThatCameNotBringsItsTabsBack()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = WithoutSummary(kind);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    // The only tab is the selected one: a click on it asks all the same.
    AnswerPrompt(true);
    ClickTab(window, u"Summary"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QVERIFY(BoxOf(window, CaseTab::Summary)->isChecked());
    for (const CaseTab tab : TabsOf(kind))
        QVERIFY(!BoxOf(window, tab)->isEnabled());
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply(SummaryReplyOf(kind));
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
    QCOMPARE(CaptionsOf(window).size(), TabsOf(kind).size() + 1);
    // Everything else can be fetched now.
    ClickTab(window, u"Names"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    QVERIFY(!BoxOf(window, CaseTab::Summary)->isEnabled());
    Tick(window, {CaseTab::Names});
    ExpectTab(kind, CaseTab::Names);
    SearchNowToTheEnd(window);
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
}

void tst_OnDemandSummary::aSummaryThatFailsAgain()
{
    const CaseWindowKind kind = CaseWindowKind::Superior;
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s});
    CaseWindow *window = WithoutSummary(kind);
    AnswerPrompt(true);
    ClickTab(window, u"Summary"_s);
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply({u"ERROR Connection lost~"_s, u"EOF~"_s});
    // The failed Summary brings itself to the front, and the question with it.
    AnswerPrompt(true);
    SearchNowToTheEnd(window);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QVERIFY(BoxOf(window, CaseTab::Summary)->isChecked());
    QVERIFY(CommandsEnabled(window));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    // The third time it comes, and nothing of the failures stays: a tab that was to be fetched at
    // once offers itself, too.
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply(SummaryReplyOf(kind));
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    ClickTab(window, u"Names"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    ExpectTab(kind, CaseTab::Names);
    ExpectTab(kind, CaseTab::Docket);
    SearchNowToTheEnd(window);
    QVERIFY(window->Tab(CaseTab::Names).TabDone && window->Tab(CaseTab::Docket).TabDone);
}

void tst_OnDemandSummary::aSummaryKeepsTheAnswerThatItHas_data()
{
    EachCaseWindow();
}

void tst_OnDemandSummary::aSummaryKeepsTheAnswerThatItHas()
{
    QFETCH(CaseWindowKind, kind);
    const auto answered = [kind](CaseTab tab) {
        return QString(LineOf(kind, tab).chopped(2) + u" ARBITRATION¦¦"_s);
    };
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply({u"USERQUESTION~"_s, u"EOF~"_s});
    court->Expect(answered(CaseTab::Summary)).Reply({u"ERROR Connection lost~"_s, u"EOF~"_s});
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s,
                             [](QDialog *dialog) { ButtonOf(dialog, "Command1")->click(); });
    CaseWindow *window = MakeCase(kind);
    Run(window);
    AnswerPrompt(true);
    ClickTab(window, u"Summary"_s);
    // The line is sent as it stands; those of the other tabs get the answer when their turn comes.
    court->Expect(answered(CaseTab::Summary)).Reply(SummaryReplyOf(kind));
    SearchNowToTheEnd(window);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    for (const CaseTab tab : {CaseTab::Names, CaseTab::Docket})
        court->Expect(answered(tab)).Reply(ReplyOf(tab));
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
}

void tst_OnDemandSummary::aSummaryThatDoesNotComeTakesTheOtherBoxesAlong_data()
{
    EachCaseWindow();
}

void tst_OnDemandSummary::aSummaryThatDoesNotComeTakesTheOtherBoxesAlong()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = MakeCase(kind);
    Global.bStopRequested = true;
    desk->ConnectTo(*court);
    Begin(window);
    QTRY_VERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Summary, CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply({});
    AnswerPrompt(false);
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    UntilTimeOut(window);
    // Without its Summary nobody knows which tabs the case has.
    QCOMPARE(court->Requests().size(), 1);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_OnDemandSummary::aSummaryThatSaysThatThereIsNoCase()
{
    const CaseWindowKind kind = CaseWindowKind::Civil;
    CaseWindow *window = WithoutSummary(kind);
    AnswerPrompt(true);
    ClickTab(window, u"Summary"_s);
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply({u"EOF~"_s});
    SearchNow(window);
    frmQueue::Form().FIFO.AddItem(otherKey);
    window->TmrSearchOnDemand->start(1);
    QTRY_VERIFY(desk->Folder.Logged(u"NORMAL EXIT - from Process On Demand Search Reqeusts."_s));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped. Case Was Not Located."_s);
    QVERIFY(window->windowTitle().endsWith(u" - This Case Was Not Located!"));
    // The turn was given back once.
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(CommandsEnabled(window));
}

void tst_OnDemandSummary::nothingIsAskedBehindASummaryWithoutACase_data()
{
    EachCaseWindow();
}

void tst_OnDemandSummary::nothingIsAskedBehindASummaryWithoutACase()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = MakeCase(kind);
    Global.bStopRequested = true;
    desk->ConnectTo(*court);
    Begin(window);
    QTRY_VERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Summary, CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply({u"EOF~"_s});
    SearchNowToTheEnd(window);
    QCOMPARE(court->Requests().size(), 1);
    QCOMPARE(TextOf(window, "lblStatus"), kind == CaseWindowKind::Superior
                                              ? u"Search Stopped. Case Not Located."_s
                                              : u"Search Stopped. Case Was Not Located."_s);
    QVERIFY(!window->Tab(CaseTab::Names).TabDone && !window->Tab(CaseTab::Docket).TabDone);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_OnDemandSummary::aSummaryOfACaseThatWasStoppedBeforeItsTurn_data()
{
    EachCaseWindow();
}

void tst_OnDemandSummary::aSummaryOfACaseThatWasStoppedBeforeItsTurn()
{
    QFETCH(CaseWindowKind, kind);
    // Of the conversation of the first run comes only what is asked for later.
    CaseWindow *window = Pending(kind);
    Global.bStopRequested = true;
    desk->ConnectTo(*court);
    Begin(window);
    QTRY_VERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    QVERIFY(CommandsEnabled(window));
    ClickTab(window, u"Summary"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    Tick(window, {CaseTab::Summary, CaseTab::Docket});
    ExpectTab(kind, CaseTab::Docket);
    SearchNowToTheEnd(window);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_OnDemandSummary::aBankruptcySummary()
{
    CaseWindow *window = Bankruptcy(bankruptcyLine);
    Global.bStopRequested = true;
    desk->ConnectTo(*court);
    Begin(window);
    QTRY_VERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    ClickTab(window, u"Summary"_s);
    court->Expect(bankruptcyLine).Reply(bankruptcySummary());
    SearchNowToTheEnd(window);
    QCOMPARE(CaptionsOf(window), (QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s}));
    // The lines of the tabs have come with it.
    ClickTab(window, u"Docket"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    court->Expect(bankruptcyNames).Reply(TableForm({u"1~2~"_s}));
    court->Expect(bankruptcyDocket).Reply(TableForm({u"1~2~"_s}));
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->Tab(CaseTab::Docket).TabDone && window->Tab(CaseTab::Names).TabDone);
}

void tst_OnDemandSummary::aBankruptcyTab()
{
    const QStringList failure{u"ERROR The court is busy~"_s, u"EOF~"_s};
    court->Expect(bankruptcyLine).Reply(bankruptcySummary());
    court->Expect(bankruptcyNames).Reply(TableForm({u"1~2~"_s}));
    court->Expect(bankruptcyDocket).Reply(failure);
    CaseWindow *window = Bankruptcy(bankruptcyLine);
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    AnswerPrompt(true);
    ClickTab(window, u"Docket"_s);
    QVERIFY(!BoxOf(window, CaseTab::Names)->isEnabled());
    court->Expect(bankruptcyDocket).Reply(TableForm({u"1~2~"_s}));
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
}

HALVANE_TEST(tst_OnDemandSummary)
#include "tst_OnDemandSummary.moc"
