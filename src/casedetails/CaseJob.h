#pragma once

#include "casedetails/CaseRequests.h"
#include "casedetails/CaseSheet.h"
#include "casedetails/CaseTabs.h"
#include "jobs/Job.h"
#include "jobs/ListBox.h"

class CaseTalk;
class RunTimeError;

/// What a case that starts with this is for.
JobMatter MatterOf(const CaseStart &start);

/// The run of one case: takes its turn on the link, asks for the case one tab at a time, and makes
/// a table of each. What was left out, or failed, can be fetched later in a run of its own. What
/// comes of it is on the sheet.
///
/// This is what the three kinds of cases share. How they differ is in CaseTabs, CaseRequests,
/// TabGrids and the readers of the Summary, and in the few overrides below.
///
/// The life of the job is in CaseJob.cpp, its first run in CaseRun.cpp, the exchange of one tab in
/// CaseTabRetrieval.cpp and CaseSummary.cpp, the later runs in CaseOnDemand.cpp.
class CaseJob : public Job
{
    Q_OBJECT
public:
    /// The user is asked through this from now on, until the job is given up; null for nobody.
    void UseTalk(CaseTalk *window) { talk = window; }

    /// Takes what the starter hands over.
    void Take(const CaseStart &start);
    JobMatter Matter() const override;
    /// Brings a tab into sight, or the on-demand panel in its place. An incomplete tab asks first
    /// whether it shall be retrieved again. A caption that is no tab's does nothing.
    void ActivateTab(const QString &caption);
    /// Starts a later run, which fetches what is chosen when its box is reached.
    void SearchNow();
    void ShowCriteria() override;
    /// Makes the table of a tab from its reply, which is in lboxResponses. Not for the Summary.
    /// Throws what goes wrong.
    virtual void ShowTab(CaseTab tab, bool incomplete, const QString &request);

    CaseSheet Sheet;
    CaseRecord &Record;
    ListBox lboxTabReqQueue; ///< the request lines of the first run
    ListBox lboxResponses;   ///< the reply of the tab that was fetched last
    /// The window has gone in the middle of a run, which ends at its next stop point. By itself a
    /// window refuses that, but not when its link is thought to be free.
    bool CloseRequested = false;
    QTimer *TmrSearchOnDemand; ///< asks for the turn of a later run

Q_SIGNALS:
    /// Something has come: the line of status is to be seen, even in a moment in which it blinks.
    void StatusToBeSeen();
    /// The exchange of a tab has ended, and its table is on the sheet: whole, or what came before
    /// it failed or was stopped. Not of the Summary.
    void TabCame(CaseTab tab, bool whole);
    void FlashWanted(); ///< a run is over
    void CloseWanted(); ///< the window is to go, and nobody is to be asked

protected:
    explicit CaseJob(CaseKind caseKind);

    /// The tabs that this case can have, once the starter's fields are there; called on the first
    /// tick.
    virtual void CutTabsToCase() = 0;
    /// The Summary's reply is in lboxResponses: makes its table and the header. Throws what goes
    /// wrong.
    virtual void ShowSummaryResponse() = 0;
    /// The Summary could not be had for this reason: what the header reads then.
    virtual void ShowSummaryFailure(const QString &reason) = 0;
    /// The case is not there: nothing more is asked for, and this is what is said.
    void EndNotLocated(const QString &status, const QString &captionSuffix);

    void BeginTick() override;
    void ProcessSearchRequests() override;
    void ShowStopped(StopCase stopCase) override;
    QString StopRequest() const override;
    void GivenUp() override;

    bool InvalidNumber = false; ///< the Summary says that its number is none of a case

private:
    /// How a run ends, or Normal while it goes on.
    enum class RunEnd { Normal, InvalidCase, Error, Fatal, NotLocated, Stopped, Closed };

    static constexpr int brokenDown = 911; ///< a value of FatalError

    void BuildTabRequests();
    bool askOnDemand(CaseTabRecord &ofTab);
    /// Whether the list of documents counts.
    enum class Documents { Too, AsTheyAre };
    void leaveUnretrieved(Documents documents = Documents::Too);
    /// Whether the user, or whoever wants to leave, wants nothing more of this run.
    bool isToEnd() const;

    // The first run
    RunEnd runTabs();
    RunEnd runSummary();
    void askAgainWithAnswer();
    RunEnd runTab(CaseTab tab);
    void rewriteForArbitration(CaseTab tab);
    RunEnd testStopFlags() const;
    void endRun(RunEnd end);
    void endNormally();
    void endInvalid();
    void endStopped();
    void endClosed();
    void endInError();
    void showEndStatus();
    void reportEmptyQueue();
    void printIfAsked();

    // The exchange of a tab
    void retrieveTab(CaseTab tab, const QString &request);
    void doTabSearch(CaseTab tab, const QString &request);
    void tabFailed(CaseTab tab, const RunTimeError &error);

    // The exchange of the Summary
    void DoSummarySearch(const QString &request);
    struct SummaryRead;
    bool takeSummaryLine(const QString &line, const QString &request, SummaryRead &read);
    void takeSummaryError(const QString &line, SummaryRead &read);
    void askArbitration();
    void evaluateSummary(const QString &request, const SummaryRead &read);
    bool stopHasCutSummaryShort() const;
    void summaryComplete(const QString &request);
    void showFailedSummary(const QString &reason);
    void summaryInvalid(const QString &request, const QString &reason);
    void summaryIncomplete(const QString &request, const QString &reason);

    // The later runs
    void askTurnOnDemand();
    void offerNextRun();
    void ProcessOnDemandSearchRequests();
    RunEnd runOnDemandTabs();
    RunEnd runOnDemandTab(CaseTab tab);
    void prepareOnDemand(CaseTab tab);
    void endOnDemand(RunEnd end);

    CaseTalk *talk = nullptr;
    bool CaseInvalid = false;  ///< the court says that it has no such case
    int FatalError = 0;        ///< brokenDown once a tab's exchange broke down
    QString fatalText;         ///< the error with which a run broke down, "" when it did not
    bool UserQuestion = false; ///< the court asked whether arbitration is meant, and was answered
    ArbitrationMode arbitration = ArbitrationMode::NotAsked;
    bool RequestsBuilt = false;
    bool TabsPending = true; ///< until the strip was cut to the case
    bool onDemand = false;   ///< the run that waits or goes on is a later one
};
