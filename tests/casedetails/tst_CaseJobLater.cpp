// The later runs of a case as a job by itself.

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseJobs.h"
#include "casedetails/DiscisCaseJob.h"
#include "casedetails/StateCaseJob.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"

#include <QSignalSpy>
#include <QTest>

namespace {
const QString otherKey = u"22222222222222222222"_s;
const QString normalExit = u"NORMAL EXIT - from Process On Demand Search Reqeusts."_s;

QString superior(const char *word)
{
    return SuperiorLine(QLatin1StringView(word));
}

/// A case that cannot be cut to its tabs any more.
class UncutCase : public DiscisCaseJob
{
public:
    UncutCase() : DiscisCaseJob(CaseKind::Civil) {}

    bool breaks = false;

protected:
    void CutTabsToCase() override
    {
        if (breaks)
            throw RunTimeError(9, u"Subscript out of range"_s);
        DiscisCaseJob::CutTabsToCase();
    }
};
} // namespace

class tst_CaseJobLater : public CaseJobTest
{
    Q_OBJECT
private Q_SLOTS:
    void whatIsChosenIsAskedForInTheOrderOfTheBoxes();
    void nothingChosenAsksForNothing();
    void whatIsChosenCountsWhenItsBoxIsReached();
    void lookingAtAnotherTabKeepsTheChoice();
    void aTabThatFailsAgain_data();
    void aTabThatFailsAgain();
    void whileOneQuestionStandsTheNextIsNotAsked();
    void nobodyIsAskedAboutATabThatFails();
    void aSummaryThatCameNotBringsItsTabsBack();
    void theAnswerForTheArbitrationCourtIsInEachRequest();
    void stoppedBeforeItsTurn();
    void stoppedWhileItRuns();
    void allJobsStop_data();
    void allJobsStop();
    void aRunThatBrokeDownCanBeFollowedByAnother();
    void aRunTimeErrorAheadOfTheSummary();
    void nobodyLooksInTheMiddle();
    void nobodyLooksWhenItBreaksDown();
    void theWindowGoesUnderTheQuestion();

private:
    /// A case of the Superior Courts behind its first run, with these tabs fetched.
    StateCaseJob *afterFirstRun(const QStringList &captions = {});
    void expectTable(const char *word)
    {
        court->Expect(superior(word)).Reply(GridDef({u"01/02/2003~A~"_s}));
    }
    void expectFailure(const char *word)
    {
        court->Expect(superior(word)).Reply({u"ERROR~no luck~"_s, u"EOF~"_s});
    }
};

StateCaseJob *tst_CaseJobLater::afterFirstRun(const QStringList &captions)
{
    FetchAtOnce(u"CaseSearchTabs"_s, captions);
    court->Expect(superior("SUMMARY")).Reply(Whole(SuperiorSummary()));
    for (const QString &caption : captions)
        court->Expect(SuperiorLine(caption.toUpper())).Reply(GridDef({u"01/02/2003~A~"_s}));
    StateCaseJob *job = Superior();
    Run(job);
    job->ActivateTab(u"Sentence"_s);
    return job;
}

void tst_CaseJobLater::whatIsChosenIsAskedForInTheOrderOfTheBoxes()
{
    StateCaseJob *job = afterFirstRun();
    const QString firstKey = job->txtMasterKey;
    expectTable("NAMES");
    expectTable("JUDGMENTS");
    expectTable("ACCOUNTING");
    QStringList shown;
    connect(&job->Sheet, &CaseSheet::SightChanged, this,
            [&] { shown.append(job->Record.SelectedTab); });
    const QSignalSpy ended(job, &Job::Ended);
    RunLater(job, {CaseTab::Accounting, CaseTab::Names, CaseTab::Judgments});
    QCOMPARE(court->Requests().mid(1),
             (QStringList{superior("NAMES"), superior("JUDGMENTS"), superior("ACCOUNTING")}));
    QCOMPARE(shown, (QStringList{u"Names"_s, u"Judgments"_s, u"Accounting"_s}));
    QCOMPARE(TabsWith(job, &CaseTabRecord::TabDone),
             (QStringList{u"Summary"_s, u"Names"_s, u"Accounting"_s, u"Judgments"_s}));
    QVERIFY(job->txtMasterKey != firstKey);
    QVERIFY(desk->Folder.Logged(normalExit));
    QCOMPARE(ended.size(), 1);
    QCOMPARE(job->Status.Text, u"Search Complete"_s);
    QVERIFY(job->Record.CanPrint && job->Record.CanSearchNow);
    // What has come is offered no more, and the rest is.
    QVERIFY(!job->Record.Tab(CaseTab::Names).Offered);
    QVERIFY(job->Record.Tab(CaseTab::Docket).Offered && job->Record.Tab(CaseTab::Docket).Chosen);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseJobLater::nothingChosenAsksForNothing()
{
    StateCaseJob *job = afterFirstRun();
    QStringList status;
    connect(job, &Job::Changed, this, [&] { status.append(job->Status.Text); });
    RunLater(job, {});
    QCOMPARE(status, (QStringList{u"Pending .."_s, u"Searching .."_s, u"Search Complete"_s}));
    QCOMPARE(court->Requests().size(), 1);
}

void tst_CaseJobLater::whatIsChosenCountsWhenItsBoxIsReached()
{
    StateCaseJob *job = afterFirstRun();
    court->Expect(superior("NAMES")).Reply(GridDef({u"A~B~"_s})).Late();
    expectTable("JUDGMENTS");
    desk->When([this] { return court->OwesAnswer(); },
               [this, job] {
                   job->Sheet.Choose(CaseTab::Docket, false);
                   job->Sheet.Choose(CaseTab::Judgments, true);
                   court->AnswerNow();
               });
    RunLater(job, {CaseTab::Names, CaseTab::Docket});
    QVERIFY(!job->Record.Tab(CaseTab::Docket).TabDone);
    QVERIFY(job->Record.Tab(CaseTab::Judgments).TabDone);
}

void tst_CaseJobLater::lookingAtAnotherTabKeepsTheChoice()
{
    StateCaseJob *job = afterFirstRun();
    court->Expect(superior("NAMES")).Reply(GridDef({u"A~B~"_s})).Late();
    desk->When([this] { return court->OwesAnswer(); },
               [this, job] {
                   job->ActivateTab(u"Charges"_s);
                   QVERIFY(job->Record.PanelInSight);
                   court->AnswerNow();
               });
    RunLater(job, {CaseTab::Names});
    QCOMPARE(court->Requests().size(), 2);
    // With the run over, what is missing is ticked again.
    QVERIFY(job->Record.Tab(CaseTab::Charges).Chosen);
}

void tst_CaseJobLater::aTabThatFailsAgain_data()
{
    QTest::addColumn<bool>("retry");
    QTest::newRow("YES") << true;
    QTest::newRow("NO") << false;
}

void tst_CaseJobLater::aTabThatFailsAgain()
{
    QFETCH(bool, retry);
    StateCaseJob *job = afterFirstRun();
    CaseListener listener(job);
    listener.Retry = retry;
    expectFailure("DOCKET");
    RunLater(job, {CaseTab::Docket});
    QCOMPARE(listener.Said(), QStringList{u"on demand"_s});
    QCOMPARE(job->Record.Tab(CaseTab::Docket).TabNotRetrieved, retry);
    QCOMPARE(job->Record.InSight, CaseTab::Docket);
    QCOMPARE(job->Record.PanelInSight, retry);
    QCOMPARE(job->Record.lblWarning.Text, u"Docket Information Incomplete! Click Tab to Review."_s);
    QCOMPARE(job->Status.Text, u"Search Incomplete!"_s);
    QVERIFY(job->Status.Trouble);
    QVERIFY(job->Record.Tab(CaseTab::Docket).Offered);
}

void tst_CaseJobLater::whileOneQuestionStandsTheNextIsNotAsked()
{
    StateCaseJob *job = afterFirstRun();
    CaseListener listener(job);
    listener.Retry = std::nullopt;
    expectFailure("DOCKET");
    RunLater(job, {CaseTab::Docket});
    // As its exchange left it.
    QVERIFY(job->Record.Tab(CaseTab::Docket).TabNotRetrieved);
    CaseAnswers.bOnDemandPrompt = false;
    job->ActivateTab(u"Docket"_s);
    QCOMPARE(listener.Said(), QStringList{u"on demand"_s});
}

void tst_CaseJobLater::nobodyIsAskedAboutATabThatFails()
{
    StateCaseJob *job = afterFirstRun();
    expectFailure("DOCKET");
    RunLater(job, {CaseTab::Docket});
    QVERIFY(job->Record.Tab(CaseTab::Docket).TabNotRetrieved);
    QVERIFY(job->Record.PanelInSight);
}

void tst_CaseJobLater::aSummaryThatCameNotBringsItsTabsBack()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(superior("SUMMARY")).Reply({u"ERROR~unknown error~"_s, u"EOF~"_s});
    StateCaseJob *job = Superior();
    CaseListener listener(job);
    listener.Retry = true;
    Run(job);
    QCOMPARE(job->Record.TabCaptions, QStringList{u"Summary"_s});
    job->ActivateTab(u"Summary"_s);
    QVERIFY(job->Record.PanelInSight);
    court->Expect(superior("SUMMARY")).Reply(Whole(SuperiorSummary()));
    RunLater(job, {CaseTab::Summary});
    QCOMPARE(job->Record.TabCaptions.size(), 9);
    QVERIFY(job->Record.Tab(CaseTab::Summary).TabDone);
    // The docket was to be fetched at once; nobody has asked for it.
    QVERIFY(job->Record.Tab(CaseTab::Docket).TabNotRetrieved);
    expectTable("DOCKET");
    RunLater(job, {CaseTab::Docket});
    QVERIFY(job->Record.Tab(CaseTab::Docket).TabDone);
}

void tst_CaseJobLater::theAnswerForTheArbitrationCourtIsInEachRequest()
{
    const auto answered = [](const char *word) {
        return QString(superior(word).chopped(2) + u" ARBITRATION¦¦"_s);
    };
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(superior("SUMMARY")).Reply({u"USERQUESTION~arbitration?~"_s, u"EOF~"_s});
    court->Expect(answered("SUMMARY")).Reply(Whole(SuperiorSummary()));
    StateCaseJob *job = Superior();
    CaseListener listener(job);
    listener.Arbitration = true;
    Run(job);
    job->ActivateTab(u"Docket"_s);
    const QString line = job->Record.Tab(CaseTab::Docket).TabRequest;
    court->Expect(line.chopped(2) + u" ARBITRATION¦¦"_s).Reply(GridDef({u"A~B~"_s}));
    RunLater(job, {CaseTab::Docket});
    QVERIFY(job->Record.Tab(CaseTab::Docket).TabDone);
}

void tst_CaseJobLater::stoppedBeforeItsTurn()
{
    StateCaseJob *job = afterFirstRun();
    frmQueue::Form().FIFO.AddItem(otherKey);
    job->SearchNow();
    QCOMPARE(job->State(), JobState::Pending);
    QVERIFY(!job->Record.CanSearchNow && !job->Record.CanPrint);
    job->Stop();
    QCOMPARE(job->State(), JobState::Over);
    QVERIFY(!job->TmrSearchOnDemand->isActive());
    QVERIFY(job->Record.CanSearchNow && job->Record.CanPrint);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherKey});
    QCOMPARE(job->Status.Text, u"Search Stopped By User .. "_s);
}

void tst_CaseJobLater::stoppedWhileItRuns()
{
    StateCaseJob *job = afterFirstRun();
    court->Expect(superior("NAMES")).Reply({u"GRIDDEF~A~B~20~80~"_s});
    court->Expect(u"¦STOP"_s).Reply({u"EOF~"_s});
    desk->When([job] { return job->lboxResponses.ListCount() == 1; }, [job] { job->Stop(); });
    RunLater(job, {CaseTab::Names, CaseTab::Docket});
    QVERIFY(desk->Folder.Logged(
        u"SEARCHING STOPPED DUE TO LOGOUT - from ProcessSearchReqeusts in Case Details."_s));
    QCOMPARE(job->Status.Text, u"Search Stopped by User .."_s);
    QVERIFY(job->Record.SearchStopped && job->Record.CanSearchNow && job->Record.CanPrint);
    QVERIFY(job->Record.Tab(CaseTab::Docket).Offered);
}

void tst_CaseJobLater::allJobsStop_data()
{
    QTest::addColumn<bool>("running");
    QTest::newRow("before its turn") << false;
    QTest::newRow("while it runs") << true;
}

void tst_CaseJobLater::allJobsStop()
{
    QFETCH(bool, running);
    StateCaseJob *job = afterFirstRun();
    if (running) {
        court->Expect(superior("NAMES")).Reply(GridDef({u"A~B~"_s})).Late();
        desk->When([this] { return court->OwesAnswer(); },
                   [this] {
                       Global.bStopRequested = true;
                       court->AnswerNow();
                   });
    }
    job->Sheet.OfferMissing(false);
    job->SearchNow();
    Global.bStopRequested = !running;
    QVERIFY(Finished(job));
    QVERIFY(desk->Folder.Logged(u"INCOMPLETE EXIT - from OnDemandTimer1 - Case Details."_s));
    QCOMPARE(job->Record.lblWarning.Text, u"Search Stopped .."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(job->Record.CanSearchNow);
    QCOMPARE(job->Record.Tab(CaseTab::Names).TabDone, running);
}

void tst_CaseJobLater::aRunThatBrokeDownCanBeFollowedByAnother()
{
    StateCaseJob *job = afterFirstRun();
    court->Expect(superior("DOCKET")).Reply({u"GRIDDEF~A~B~wide~80~"_s, u"a~b~"_s, u"EOF~"_s});
    for (const CaseTab tab : {CaseTab::Names, CaseTab::Judgments})
        job->Sheet.Choose(tab, false);
    job->Sheet.Choose(CaseTab::Docket, true);
    job->SearchNow();
    const QString key = job->txtMasterKey;
    QVERIFY(LinkDesk::WaitUntil(
        [job] { return !job->HasTurn() && job->State() != JobState::Pending; }));
    // It keeps its place, and can begin anew.
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{key});
    QVERIFY(job->Record.CanSearchNow);
    QVERIFY(!desk->Folder.Logged(normalExit));
    expectTable("DOCKET");
    RunLater(job, {CaseTab::Docket});
    QVERIFY(job->Record.Tab(CaseTab::Docket).TabDone);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseJobLater::aRunTimeErrorAheadOfTheSummary()
{
    const QString line = DistrictLine(CaseKind::Civil, u"CIVI"_s);
    court->Expect(line).Reply({u"ERROR~unknown error~"_s, u"EOF~"_s});
    auto *job = Enqueued(new UncutCase);
    CaseListener listener(job);
    listener.Retry = true;
    job->Record.txtCaseNumber = u"Y00012345"_s;
    job->Record.txtCourtCode = u"SED"_s;
    job->Record.txtCaseType = u"CV"_s;
    Run(job);
    job->ActivateTab(u"Summary"_s);
    job->breaks = true;
    job->SearchNow();
    QVERIFY(LinkDesk::WaitUntil(
        [job] { return !job->HasTurn() && job->State() != JobState::Pending; }));
    QVERIFY(desk->Folder.Logged(u"ERROR EXIT - from ProcessOnDemandSearchReqeusts. Error: "
                                "Subscript out of range"_s));
    QCOMPARE(court->Requests().size(), 1);
    QVERIFY(!desk->Folder.Logged(normalExit));
    // As behind every break: its place is kept until it goes, and it can be asked again.
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{job->txtMasterKey});
    QVERIFY(job->Record.CanSearchNow);
    // No run goes on whose ticks would be the user's.
    job->Sheet.Choose(CaseTab::Summary, false);
    job->ActivateTab(u"Summary"_s);
    QVERIFY(job->Record.Tab(CaseTab::Summary).Chosen);
}

void tst_CaseJobLater::nobodyLooksInTheMiddle()
{
    StateCaseJob *job = afterFirstRun();
    CaseListener listener(job);
    court->Expect(superior("NAMES")).Reply({u"ERROR~no luck~"_s, u"EOF~"_s}).Late();
    desk->When([this] { return court->OwesAnswer(); },
               [this, job] {
                   job->GiveUp();
                   court->AnswerNow();
               });
    RunLater(job, {CaseTab::Names, CaseTab::Docket});
    QVERIFY(desk->Folder.Logged(
        u"SEARCH FORM CLOSED BY USER - from Process Search Reqeusts in Case Details."_s));
    QCOMPARE(listener.Said(), QStringList());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

/// Its place is kept for nobody.
void tst_CaseJobLater::nobodyLooksWhenItBreaksDown()
{
    StateCaseJob *job = afterFirstRun();
    court->Expect(superior("DOCKET"))
        .Reply({u"GRIDDEF~A~B~wide~80~"_s, u"a~b~"_s, u"EOF~"_s})
        .Late();
    for (const CaseTab tab : {CaseTab::Names, CaseTab::Judgments})
        job->Sheet.Choose(tab, false);
    desk->When([this] { return court->OwesAnswer(); },
               [this, job] {
                   job->GiveUp();
                   court->AnswerNow();
               });
    job->SearchNow();
    QVERIFY(LinkDesk::WaitUntil(
        [job] { return !job->HasTurn() && job->State() != JobState::Pending; }));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseJobLater::theWindowGoesUnderTheQuestion()
{
    StateCaseJob *job = afterFirstRun();
    CaseListener listener(job);
    listener.Meanwhile = [job] { job->GiveUp(); };
    const CaseTab before = job->Record.InSight;
    expectFailure("DOCKET");
    RunLater(job, {CaseTab::Docket, CaseTab::Judgments});
    QCOMPARE(listener.Said(), QStringList{u"on demand"_s});
    QCOMPARE(job->Record.InSight, before);
    QCOMPARE(court->Requests().size(), 2);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

HALVANE_TEST(tst_CaseJobLater)
#include "tst_CaseJobLater.moc"
