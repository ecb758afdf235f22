#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "support/HalvaneTest.h"

#include <QPushButton>
#include <QTest>

/// What an exchange has left on the line when a case asks for its tabs.
class tst_CaseLeftovers : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void theEndMarkBehindTheLoginEndsNoTab_data();
    void theEndMarkBehindTheLoginEndsNoTab();
    void aReplyBehindItsTimeOutIsNoOtherTabs_data();
    void aReplyBehindItsTimeOutIsNoOtherTabs();
    void nothingOfAStoppedSummaryComesIntoTheNext();

private:
    /// What the court says lies in the buffer: nobody is reading.
    void arriveUnread(const QStringList &tokens)
    {
        court->SendTokens(tokens);
        QTRY_VERIFY(!Global.strRecvBuffer.IsEmpty());
    }
};

void tst_CaseLeftovers::theEndMarkBehindTheLoginEndsNoTab_data()
{
    EachCaseWindow();
}

void tst_CaseLeftovers::theEndMarkBehindTheLoginEndsNoTab()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    // FALSE~ ended the last exchange of the login; its end mark came behind it.
    arriveUnread({u"EOF~"_s});
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply(GridDef({u"01/02/2003~a name~"_s}));
    court->Expect(LineOf(kind, CaseTab::Docket)).Reply(GridDef({u"01/02/2003~an entry~"_s}));
    SearchNowToTheEnd(window);
    QCOMPARE(CellsOf(window, CaseTab::Names).value(1), (QStringList{u"01/02/2003"_s, u"a name"_s}));
    QCOMPARE(CellsOf(window, CaseTab::Docket).value(1),
             (QStringList{u"01/02/2003"_s, u"an entry"_s}));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseLeftovers::aReplyBehindItsTimeOutIsNoOtherTabs_data()
{
    EachCaseWindow();
}

void tst_CaseLeftovers::aReplyBehindItsTimeOutIsNoOtherTabs()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Docket)).Reply({});
    AnswerPrompt(true);
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    UntilTimeOut(window);
    QVERIFY(window->Tab(CaseTab::Docket).TabIncomplete);
    arriveUnread(GridDef({u"01/02/2003~an entry~"_s}));

    AnswerPrompt(true);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply(GridDef({u"01/02/2003~a name~"_s}));
    SearchNowToTheEnd(window);
    QCOMPARE(CellsOf(window, CaseTab::Names).value(1), (QStringList{u"01/02/2003"_s, u"a name"_s}));
}

void tst_CaseLeftovers::nothingOfAStoppedSummaryComesIntoTheNext()
{
    // The court did not hear the stop in time: what it had to say stands behind its end mark.
    frmCaseDetails *first = Superior();
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({u"Case#:~02-1-00123-4~"_s});
    court->Expect(u"¦STOP"_s).Reply({u"EOF~"_s, u"Court:~King County~"_s, u"EOF~"_s});
    Global.bShowAlerts = false;
    desk->When([first] { return first->lboxResponses.ListCount() == 1; },
               [first] { ButtonOf(first, "cmdStopSearching")->click(); });
    Run(first);
    QTRY_VERIFY(!Global.strRecvBuffer.IsEmpty());

    frmCaseDetails *second = Superior(u"02-1-00777-1"_s);
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"02-1-00777-1"_s))
        .Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    desk->Time.Run(0.05);
    Begin(second);
    QVERIFY(Finished(second));
    desk->Time.Stop();
    QCOMPARE(TextOf(second, "lblCaseTitle"), u"STATE OF WASHINGTON VS SMITH & SON"_s);
    QVERIFY(second->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(TextOf(second, "lblStatus"), u"Search Complete"_s);
}

HALVANE_TEST(tst_CaseLeftovers)
#include "tst_CaseLeftovers.moc"
