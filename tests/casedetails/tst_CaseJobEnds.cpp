// How the first run of a case can end, without a window: each end, each stop, and when nobody
// looks.

#include "casedetails/CaseJobs.h"
#include "casedetails/DiscisCaseJob.h"
#include "casedetails/StateCaseJob.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/ServerSocket.h"
#include "support/HalvaneTest.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {
const QString otherKey = u"22222222222222222222"_s;
const QString summaryLine = SuperiorLine(u"SUMMARY"_s);
const QString docketLine = SuperiorLine(u"DOCKET"_s);
const QString closeExit =
    u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s;
const QString stopExit =
    u"SEARCHING STOPPED DUE TO LOGOUT or STOP - from ProcessSearchReqeusts in Case Details."_s;

enum class Way {
    Ordinary,
    TabFails,
    InvalidNumber,
    StopRequested,
    AllJobsStop,
    CloseRequested,
    SummaryFails,
    SummarySilent,
    NothingThere,
    TabBreaksDown
};

/// What is left of a run that ended in a way.
struct End
{
    const char *name;
    Way way;
    QStringView exit; ///< its line in the log, "" for none
    QStringView status;
    bool trouble;
    QStringView warning;
    bool prints;
    bool flashes;
    bool stopped; ///< SearchStopped
    bool keyLeft;
    JobState state;
    int requests; ///< that the court has seen
};
constexpr std::array<End, 10> ends{{
    {"ordinary", Way::Ordinary, u"NORMAL EXIT - from ProcessSearchReqeusts.", u"Search Complete",
     false, u"", true, true, false, false, JobState::Over, 2},
    {"a tab fails", Way::TabFails, u"NORMAL EXIT - from ProcessSearchReqeusts.",
     u"Search Incomplete!", true, u"Docket Information Incomplete! Click Tab to Retry.", true, true,
     false, false, JobState::Over, 2},
    {"invalid number", Way::InvalidNumber,
     u"NORMAL EXIT - INVALID CASE NUMBER in ProcessSearchReqeusts.",
     u"Search Complete - Case Number Invalid", false, u"", true, false, false, false,
     JobState::Over, 1},
    {"stop", Way::StopRequested,
     u"SEARCHING STOPPED DUE TO LOGOUT or STOP - from ProcessSearchReqeusts in Case Details.",
     u"Search Stopped by User ..", true, u"Warning: Some results may NOT have been retrieved ..",
     true, false, true, false, JobState::Over, 1},
    {"all jobs stop", Way::AllJobsStop,
     u"SEARCHING STOPPED DUE TO LOGOUT or STOP - from ProcessSearchReqeusts in Case Details.",
     u"Search Stopped by User ..", true, u"Warning: Some results may NOT have been retrieved ..",
     true, false, true, false, JobState::Over, 1},
    {"close", Way::CloseRequested,
     u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details.",
     u"Search Stopped - Form Closing ..", true, u"Closing Form ..", false, false, false, false,
     JobState::Over, 1},
    {"the summary fails", Way::SummaryFails, u"SEARCH ERROR EXIT - from ProcessSearchReqeusts.",
     u"Search Warnings - See Summary", true,
     u"Summary Information Incomplete! Please Retry Search.", true, true, false, false,
     JobState::Over, 1},
    {"silence", Way::SummarySilent, u"NORMAL EXIT - from ProcessSearchReqeusts.",
     u"Search Incomplete!", true, u"Summary Information Incomplete! Please Retry Search.", true,
     true, false, false, JobState::Over, 1},
    {"not located", Way::NothingThere, u"NORMAL EXIT - CASE NOT LOCATED in ProcessSearchReqeusts.",
     u"Search Stopped. Case Not Located.", false, u"", true, true, false, false, JobState::Over, 1},
    {"a tab breaks down", Way::TabBreaksDown, u"", u"Retrieving Docket ..", false, u"", false,
     false, false, true, JobState::Running, 2},
}};
} // namespace

Q_DECLARE_METATYPE(const End *)

class tst_CaseJobEnds : public CaseJobTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachEnd_data();
    void eachEnd();
    void anEmptyListOfRequests();
    void stoppedBeforeItsTurn();
    void stoppedBeforeItsTurnItOffersAll();
    void stoppedWhileItRuns_data();
    void stoppedWhileItRuns();
    void aStopThatCannotBeSent();
    void aStopOfWhatBrokeDownGivesThePlaceBack();
    void allJobsStopBeforeItsTurn();
    void notConnected();
    void theLinkIsLost();
    void nobodyLooksBeforeItsTurn();
    void nobodyLooksInTheMiddle();
    void itGoesWhenItsRunHasEnded();
    void whoHasGoneIsNotPrintedFor();
    void whatIsToBePrintedIsPrintedBehindTheRun();

private:
    void prepare(Way way, CaseJob *job);
    /// Once the Summary is there, before its first tab.
    void behindTheSummary(const CaseJob *job, const std::function<void()> &act);
};

void tst_CaseJobEnds::behindTheSummary(const CaseJob *job, const std::function<void()> &act)
{
    desk->When([job] { return job->Record.Tab(CaseTab::Summary).TabDone; }, act);
}

void tst_CaseJobEnds::prepare(Way way, CaseJob *job)
{
    const auto summary = [this](const QStringList &reply) {
        court->Expect(summaryLine).Reply(Whole(reply));
    };
    switch (way) {
    case Way::Ordinary:
        summary(SuperiorSummary());
        court->Expect(docketLine).Reply(GridDef({u"01/02/2003~A~"_s}));
        return;
    case Way::TabFails:
        summary(SuperiorSummary());
        court->Expect(docketLine).Reply({u"ERROR~no luck~"_s, u"EOF~"_s});
        return;
    case Way::TabBreaksDown:
        summary(SuperiorSummary());
        court->Expect(docketLine).Reply({u"GRIDDEF~A~B~wide~80~"_s, u"a~b~"_s, u"EOF~"_s});
        return;
    case Way::InvalidNumber:
        summary({u"ERROR~02-1-00123-4 is not a valid case number~"_s});
        return;
    case Way::StopRequested:
        summary(SuperiorSummary());
        behindTheSummary(job, [job] { job->StopRequested = true; });
        return;
    case Way::AllJobsStop:
        summary(SuperiorSummary());
        behindTheSummary(job, [] { Global.bStopRequested = true; });
        return;
    case Way::CloseRequested:
        summary(SuperiorSummary());
        behindTheSummary(job, [job] { job->CloseRequested = true; });
        return;
    case Way::SummaryFails:
        summary({u"ERROR~unknown error~"_s});
        return;
    case Way::SummarySilent:
        court->Expect(summaryLine).Reply({});
        desk->When([this] { return court->Requests().size() == 1; }, [this] { desk->Time.Run(1); });
        return;
    case Way::NothingThere:
        summary({});
        return;
    }
}

void tst_CaseJobEnds::eachEnd_data()
{
    QTest::addColumn<const End *>("end");
    for (const End &end : ends)
        QTest::newRow(end.name) << &end;
}

void tst_CaseJobEnds::eachEnd()
{
    QFETCH(const End *, end);
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    CaseJob *job = Superior();
    frmQueue::Form().FIFO.AddItem(otherKey);
    const QSignalSpy flash(job, &CaseJob::FlashWanted);
    const QSignalSpy close(job, &CaseJob::CloseWanted);
    prepare(end->way, job);
    LinkDesk::ConnectTo(*court);
    if (end->way != Way::SummarySilent)
        desk->Time.Run(0.02);
    Begin(job);
    QVERIFY(LinkDesk::WaitUntil(
        [job] { return !job->HasTurn() && job->State() != JobState::Pending; }));
    if (!end->exit.isEmpty())
        QCOMPARE(desk->Folder.TimesLogged(end->exit.toString()), 1);
    QCOMPARE(job->Status.Text, end->status.toString());
    QCOMPARE(job->Status.Trouble, end->trouble);
    QCOMPARE(job->Record.lblWarning.Text, end->warning.toString());
    QCOMPARE(job->Record.CanPrint, end->prints);
    QCOMPARE(flash.size(), end->flashes ? 1 : 0);
    QCOMPARE(close.size(), end->way == Way::CloseRequested ? 1 : 0);
    QCOMPARE(job->Record.SearchStopped, end->stopped);
    QStringList keys{otherKey};
    if (end->keyLeft)
        keys.prepend(job->txtMasterKey);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), keys);
    QCOMPARE(job->State(), end->state);
    QCOMPARE(court->Requests().size(), end->requests);
    QVERIFY(!Global.bSearchInProgress);
}

void tst_CaseJobEnds::anEmptyListOfRequests()
{
    CaseJob *job = OfState(u"WAWBK"_s, u"99-20077"_s);
    job->lboxTabReqQueue.Clear();
    CaseListener listener(job);
    connect(job, &CaseJob::CloseWanted, job, [job] { job->GiveUp(); });
    LinkDesk::ConnectTo(*court);
    Begin(job);
    QTRY_COMPARE(listener.Said(), QStringList{u"empty"_s});
    QTRY_VERIFY(!Global.bSearchInProgress);
    QVERIFY(desk->Folder.Logged(u"EXITED - SEARCH QUEUE EMPTY - from ProcessSearchReqeusts."_s));
    QVERIFY(job->IsGivenUp());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QCOMPARE(court->Requests(), QStringList());
}

void tst_CaseJobEnds::stoppedBeforeItsTurn()
{
    CaseJob *job = Superior();
    frmQueue::Form().FIFO.AddItem(otherKey);
    job->Stop();
    QCOMPARE(job->State(), JobState::Over);
    QCOMPARE(job->Status.Text, u"Search Stopped By User .. "_s);
    QVERIFY(job->Status.Trouble && job->Record.SearchStopped && job->StopRequested);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QVERIFY(!job->Timer1->isActive());
    // What it would have asked for can be asked for later.
    QVERIFY(job->Record.CanSearchNow);
    QVERIFY(!job->CanBeStopped());
}

void tst_CaseJobEnds::stoppedBeforeItsTurnItOffersAll()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    CaseJob *job = Superior();
    job->Stop();
    QCOMPARE(job->Record.TabCaptions.size(), 9);
    QVERIFY(job->Record.PanelInSight);
    QCOMPARE(TabsWith(job, &CaseTabRecord::Chosen).size(), 9);
    QCOMPARE(job->Record.Tab(CaseTab::Docket).TabRequest, docketLine);
}

void tst_CaseJobEnds::stoppedWhileItRuns_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("summary");
    QTest::addColumn<QString>("stop");
    QTest::newRow("Superior") << u"WA"_s << summaryLine << u"¦STOP"_s;
    QTest::newRow("bankruptcy") << u"WAWBK"_s << u"BKRPT~SUMMARY~99-20077~"_s << u"BKRPT~STOP~"_s;
}

/// The court is told, what it still says is read, and nothing more is asked for.
void tst_CaseJobEnds::stoppedWhileItRuns()
{
    QFETCH(QString, state);
    QFETCH(QString, summary);
    QFETCH(QString, stop);
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(summary).Reply(SuperiorSummary());
    court->Expect(stop).Reply({u"EOF~"_s});
    CaseJob *job = state == u"WA" ? Superior() : OfState(state, u"99-20077"_s);
    JobState afterStop = JobState::Pending;
    bool linkWasFree = false;
    desk->When([job] { return job->lboxResponses.ListCount() == 6; },
               [&] {
                   job->Stop();
                   afterStop = job->State();
                   linkWasFree = !Global.bSearchInProgress;
                   QCOMPARE(job->Status.Text, u"Search Stopped By User .. "_s);
               });
    Run(job);
    QCOMPARE(afterStop, JobState::Stopping);
    QVERIFY(linkWasFree);
    QCOMPARE(job->Status.Text, u"Search Stopped by User .."_s);
    QVERIFY(desk->Folder.Logged(stopExit));
    // The Summary had come; it is a case.
    QVERIFY(job->Record.Tab(CaseTab::Summary).TabDone && job->Record.SearchStopped);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseJobEnds::aStopThatCannotBeSent()
{
    court->Expect(summaryLine).Reply({});
    CaseJob *job = Superior();
    frmQueue::Form().FIFO.AddItem(otherKey);
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   Global.sckServer->Close();
                   job->Stop();
                   QVERIFY(
                       desk->Folder.Logged(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s));
                   QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
               });
    Run(job);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
}

void tst_CaseJobEnds::aStopOfWhatBrokeDownGivesThePlaceBack()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    CaseJob *job = Superior();
    prepare(Way::TabBreaksDown, job);
    court->Expect(u"¦STOP"_s).Reply({});
    LinkDesk::ConnectTo(*court);
    desk->Time.Run(0.02);
    Begin(job);
    QVERIFY(LinkDesk::WaitUntil(
        [job] { return !job->HasTurn() && job->State() != JobState::Pending; }));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{job->txtMasterKey});
    QVERIFY(job->CanBeStopped());
    job->Stop();
    QCOMPARE(job->State(), JobState::Over);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QTRY_COMPARE(court->Requests().size(), 3);
}

void tst_CaseJobEnds::allJobsStopBeforeItsTurn()
{
    CaseJob *job = Superior();
    Global.bStopRequested = true;
    Begin(job);
    QVERIFY(Finished(job));
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from Timer1 - Case Details."_s));
    QCOMPARE(job->Status.Text, u"Search Stopped By User .. "_s);
    QCOMPARE(job->Record.lblWarning.Text, u"Search Stopped .."_s);
    QVERIFY(job->Record.lblWarning.Trouble);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseJobEnds::notConnected()
{
    CaseJob *job = Superior();
    Begin(job);
    QVERIFY(Finished(job));
    QVERIFY(desk->Folder.Logged(u"SEARCH ERROR EXIT - from ProcessSearchReqeusts."_s));
    QVERIFY(!job->Record.Tab(CaseTab::Summary).TabDone);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseJobEnds::theLinkIsLost()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(summaryLine).Reply(Whole(SuperiorSummary()));
    court->Expect(docketLine).Reply({u"GRIDDEF~Date~Entry~20~80~"_s}).Drop();
    CaseJob *job = Superior();
    Run(job);
    QVERIFY(job->Record.Tab(CaseTab::Docket).TabIncomplete);
    QVERIFY(job->Record.Tab(CaseTab::Docket).TabNotRetrieved);
    QCOMPARE(job->Status.Text, u"Search Incomplete!"_s);
}

void tst_CaseJobEnds::nobodyLooksBeforeItsTurn()
{
    CaseJob *job = Superior();
    frmQueue::Form().FIFO.AddItem(otherKey);
    Begin(job);
    job->GiveUp();
    QVERIFY(!job->Timer1->isActive() && !job->TmrSearchOnDemand->isActive());
    QVERIFY(!job->CloseRequested);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
}

void tst_CaseJobEnds::nobodyLooksInTheMiddle()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(summaryLine).Reply(Whole(SuperiorSummary())).Late();
    CaseJob *job = Superior();
    frmQueue::Form().FIFO.AddItem(otherKey);
    desk->When([this] { return court->OwesAnswer(); },
               [this, job] {
                   job->GiveUp();
                   // Its place is kept: the next job would read what is left of the reply.
                   QVERIFY(job->CloseRequested);
                   QCOMPARE(frmQueue::Form().FIFO.List(0), job->txtMasterKey);
                   court->AnswerNow();
               });
    Run(job);
    QVERIFY(desk->Folder.Logged(closeExit));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    // Nothing comes into sight for nobody.
    job->ActivateTab(u"Docket"_s);
    QCOMPARE(job->Record.InSight, CaseTab::Summary);
}

void tst_CaseJobEnds::itGoesWhenItsRunHasEnded()
{
    court->Expect(summaryLine).Reply(Whole(SuperiorSummary())).Late();
    const QPointer<CaseJob> job(new StateCaseJob);
    CaseStart start;
    start.lblState = u"WA"_s;
    start.txtCaseNumber = u"02-1-00123-4"_s;
    start.txtCountyName = u"King"_s;
    job->Take(start);
    job->txtMasterKey = u"1"_s;
    frmQueue::Form().FIFO.AddItem(u"1"_s);
    bool stayed = false;
    desk->When([this] { return court->OwesAnswer(); },
               [&] {
                   job->GiveUp();
                   job->Release();
                   QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                   stayed = !job.isNull();
                   court->AnswerNow();
               });
    LinkDesk::ConnectTo(*court);
    Begin(job);
    QTRY_VERIFY(job.isNull());
    QVERIFY(stayed);
    QVERIFY(desk->Folder.Logged(closeExit));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
}

void tst_CaseJobEnds::whoHasGoneIsNotPrintedFor()
{
    court->Expect(summaryLine).Reply({u"EOF~"_s});
    CaseJob *job = Superior();
    job->Record.chkAutoPrint = true;
    CaseListener listener(job);
    connect(job, &Job::Ended, job, [job] { job->GiveUp(); });
    Run(job);
    QVERIFY(!job->Record.chkAutoPrint);
    QCoreApplication::processEvents();
    QCOMPARE(listener.Said(), QStringList());
}

void tst_CaseJobEnds::whatIsToBePrintedIsPrintedBehindTheRun()
{
    court->Expect(summaryLine).Reply({u"EOF~"_s});
    CaseJob *job = Superior();
    job->Record.chkAutoPrint = true;
    CaseListener listener(job);
    QStringList atTheEnd{u"not ended"_s};
    connect(job, &Job::Ended, this, [&] { atTheEnd = listener.Said(); });
    Run(job);
    QCOMPARE(atTheEnd, QStringList());
    QTRY_COMPARE(listener.Said(), QStringList{u"print"_s});
}

HALVANE_TEST(tst_CaseJobEnds)
#include "tst_CaseJobEnds.moc"
