#include "casedetails/DiscisCaseWindow.h"
#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "controls/Notice.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Comm.h"
#include "session/SessionEvents.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>

/// A case from its first request to its last.
class tst_CaseRun : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void aCriminalCaseTabByTab();
    void aReplyThatCameUnderABoxIsNotLate_data();
    void aReplyThatCameUnderABoxIsNotLate();
    void theStatusIsInSightBehindATab();
    void aStopThatCutsTheSummaryShort_data();
    void aStopThatCutsTheSummaryShort();
    void theEndOfEachRunIsSpoken_data();
    void theEndOfEachRunIsSpoken();
    void aWarningMovesNothing_data();
    void aWarningMovesNothing();
    void helpIsWanted_data();
    void helpIsWanted();
};

void tst_CaseRun::aCriminalCaseTabByTab()
{
    const QStringList all{u"Names"_s,    u"Docket"_s,     u"Judgments"_s, u"Charges"_s,
                          u"Sentence"_s, u"Accounting"_s, u"Schedule"_s,  u"Documents"_s};
    FetchAtOnce(u"CaseSearchTabs"_s, all);
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    for (const QString &word : {u"NAMES"_s, u"DOCKET"_s, u"JUDGMENTS"_s, u"CHARGES"_s,
                                u"SENTENCE"_s, u"ACCOUNTING"_s, u"SCHEDULE"_s})
        court->Expect(SuperiorLine(word))
            .Reply(GridDef({u"01/02/2003~"_s + word + u"~"_s, u"01/03/2003~Later~"_s}));
    court->Expect(u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦"_s)
        .Reply(TableForm({u"01/02/2003~Complaint~"_s}));
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s} + all.first(2) + all.sliced(2));
    QCOMPARE(CellsOf(window, CaseTab::Docket),
             (QList<QStringList>{{u"Date"_s, u"Entry"_s},
                                 {u"01/03/2003"_s, u"Later"_s},
                                 {u"01/02/2003"_s, u"DOCKET"_s}}));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
    delete window;
}

/// Whatever the blinking has left.
void tst_CaseRun::aReplyThatCameUnderABoxIsNotLate_data()
{
    EachCaseWindow();
}

/// Somebody leaves a box open for longer than a court may be silent. The reply is here meanwhile:
/// it belongs to its tab, and the next tab must not read it as its own.
void tst_CaseRun::aReplyThatCameUnderABoxIsNotLate()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Names, CaseTab::Docket});
    court->Expect(LineOf(kind, CaseTab::Names)).Reply({});
    ExpectTab(kind, CaseTab::Docket);
    desk->Boxes.Meanwhile([&] {
        court->SendTokens(ReplyOf(CaseTab::Names));
        QTRY_VERIFY(!Global.strRecvBuffer.IsEmpty());
        desk->Time.Advance(ResponseLimitSeconds() + 1);
    });
    desk->Boxes.Expect(u"This form cannot be closed until the current search completes."_s,
                       u"Stop Current Search .."_s);
    desk->When([this] { return court->Requests().size() == 2; },
               [window] { ButtonOf(window, "cmdCloseDetails")->click(); });
    SearchNowToTheEnd(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(CellsOf(window, CaseTab::Names).at(1).at(1), u"Names"_s);
    QCOMPARE(CellsOf(window, CaseTab::Docket).at(1).at(1), u"Docket"_s);
}

void tst_CaseRun::theStatusIsInSightBehindATab()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply({});
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply({});
    frmCaseDetails *window = Superior();
    auto *status = window->findChild<QWidget *>(u"lblStatus"_s);
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   window->tmrBlink->stop();
                   status->hide();
                   court->SendTokens(GridDef({u"01/02/2003~A~"_s}));
               });
    bool inSight = false;
    desk->When([this] { return court->Requests().size() == 3; },
               [&] {
                   inSight = status->isVisible();
                   court->SendTokens(GridDef({u"01/02/2003~A~"_s}));
               });
    Run(window);
    QVERIFY(inSight);
}

void tst_CaseRun::aStopThatCutsTheSummaryShort_data()
{
    EachCaseWindow();
}

/// What is empty for that reason says nothing of the case.
void tst_CaseRun::aStopThatCutsTheSummaryShort()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = nullptr;
    if (kind == CaseWindowKind::Superior)
        window = Superior();
    else
        window = Make(kind == CaseWindowKind::Civil ? CaseKind::Civil : CaseKind::NonCivil);
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply({});
    desk->When([this] { return court->Requests().size() == 1; },
               [this, window] {
                   window->StopRequested = true;
                   court->SendTokens({u"EOF~"_s});
               });
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped by User .."_s);
    QVERIFY(desk->Folder.Logged(u"SEARCHING STOPPED DUE TO LOGOUT or STOP - from "
                                "ProcessSearchReqeusts in Case Details."_s));
    QVERIFY(window->SearchStopped);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseRun::theEndOfEachRunIsSpoken_data()
{
    EachCaseWindow();
}

void tst_CaseRun::theEndOfEachRunIsSpoken()
{
    QFETCH(CaseWindowKind, kind);
    QStringList spoken;
    ReplaceSpokenAlert(
        [&spoken](const QWidget *control) { spoken.append(control->accessibleName()); });
    const auto silent = qScopeGuard([] { ReplaceSpokenAlert({}); });
    CaseWindow *window = AfterFirstRun(kind, {}, {u"Names"_s});
    QCOMPARE(spoken, QStringList{u"Search Incomplete!"_s});
    AnswerPrompt(true);
    ClickTab(window, u"Names"_s);
    Tick(window, {CaseTab::Names});
    ExpectTab(kind, CaseTab::Names);
    SearchNowToTheEnd(window);
    QCOMPARE(spoken, (QStringList{u"Search Incomplete!"_s, u"Search Complete"_s}));
    // It can be asked for where the focus is, too.
    QVERIFY(window->Tab(CaseTab::Summary)
                .Grid->accessibleDescription()
                .startsWith(u"Search Complete - "));
}

void tst_CaseRun::aWarningMovesNothing_data()
{
    EachCaseWindow();
}

void tst_CaseRun::aWarningMovesNothing()
{
    QFETCH(CaseWindowKind, kind);
    const CaseWindow *window = AfterFirstRun(kind);
    auto *warning = window->findChild<QLabel *>(u"lblWarning"_s);
    const auto places = [window] {
        window->layout()->activate();
        QList<QRect> all;
        for (const QString &name : {u"frameTabs"_s, u"lblStatus"_s, u"cmdCloseDetails"_s}) {
            const auto *widget = window->findChild<QWidget *>(name);
            all.append({widget->mapTo(window, QPoint()), widget->size()});
        }
        return all;
    };
    QVERIFY(warning->isHidden());
    const QList<QRect> before = places();
    warning->setText(u"Docket Information Incomplete! Click Tab to Review."_s);
    warning->show();
    QCOMPARE(places(), before);
}

void tst_CaseRun::helpIsWanted_data()
{
    EachCaseWindow();
}

void tst_CaseRun::helpIsWanted()
{
    QFETCH(CaseWindowKind, kind);
    const CaseWindow *window = AfterFirstRun(kind);
    const QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::CaseHelpWanted);
    QTest::mouseClick(ButtonOf(window, "lblHelp"), Qt::LeftButton);
    QCOMPARE(wanted.size(), 1);
}

HALVANE_TEST(tst_CaseRun)
#include "tst_CaseRun.moc"
