#pragma once

#include "casedetails/CaseRequests.h"
#include "casedetails/CaseTabs.h"
#include "records/GridTable.h"
#include "jobs/JobWindow.h"
#include "jobs/ListBox.h"

#include <array>
#include <optional>

class FlexGrid;
class JobVoice;
class OnDemandPanel;
class QStackedWidget;
class RunTimeError;
class TabStrip;

/// What a case window knows of one of its tabs.
struct CaseTabState
{
    QString TabRequest;           ///< the complete request line
    bool TabNotRetrieved = false; ///< no data was asked for: the tab shows the on-demand panel
    bool TabIncomplete = false;   ///< its exchange ended in a time-out, an error reply or a failure
    bool TabDone = false;         ///< its exchange ended as it should

    QWidget *Frame = nullptr; ///< its page of frameTabs; null when the window has no such tab
    FlexGrid *Grid = nullptr;
};

/// The window of one case: takes its turn on the link, asks for the case one tab at a time, and
/// fills a grid for each. What was left out, or failed, can be fetched later in a run of its own.
///
/// This is the engine that the three case windows share. How they differ is in CaseTabs,
/// CaseRequests, TabGrids and the readers of the Summary, and in the few overrides below.
///
/// The life of the window is in CaseWindow.cpp, its first run in CaseRun.cpp, the exchange of one
/// tab in CaseTabRetrieval.cpp and CaseSummary.cpp, the later runs in CaseOnDemand.cpp.
class CaseWindow : public JobWindow
{
    Q_OBJECT
public:
    void SetCaseDetailsHdr(const QString &text);
    QString lblCaseDetailsHdr() const;
    void SetCourtName(const QString &text);
    QString lblCourtName() const;
    virtual void SetCaseTitle(const QString &text);
    QString lblCaseTitle() const;
    void SetDateFiled(const QString &text);
    QString lblDateFiled() const;

    /// Shows a tab, or the on-demand panel in its place. An incomplete tab asks first whether it
    /// shall be retrieved again. A caption that is no tab's does nothing.
    void ActivateTab(const QString &caption);
    /// Whether the strip has a tab with this caption, in capitals or not.
    bool TabExists(const QString &word) const;
    bool TabExists(CaseTab tab) const;
    /// Whether the word is one of TabCaptions, letter by letter.
    bool IsTabCaption(const QString &word) const;
    /// Whether a tab of the strip did not come as it should.
    bool AnyTabIncomplete() const;

    /// Makes the target show what the source shows: headers, widths, cells and how the columns are
    /// aligned. A report has grids of its own, which its page can lay out while the user goes on in
    /// the tab.
    static void CopyGrid(const FlexGrid &source, FlexGrid &target);
    /// Does nothing, and is kept for its name: SetGridColsAndNamesAndWidths gives a grid its widths
    /// and headers.
    static void SetColumnWidthsAndInsertHeaderText() {}

    const CaseTabState &Tab(CaseTab tab) const { return tabs.at(static_cast<size_t>(tab)); }
    const QStringList &TabCaptions() const { return tabCaptions; }

    // What the starter hands over, besides the members of every job
    QString txtCaseNumber; ///< as in the list of results, with its "*" or ">>" if it has one
    QString txtCountyName;
    QString lblOrCourtType;      ///< Oregon: "C" for Circuit, anything else for District
    QString tboxCaseNumberQueue; ///< the request line of the summary
    ListBox lboxTabReqQueue;     ///< bankruptcy: the one request line
    bool chkBK = false;
    bool chkBKYass = false;    ///< the bankruptcy list of several cases is on the screen
    bool chkAutoPrint = false; ///< print when everything has come
    QString txtCourtCode;      ///< District and Municipal Courts: the court's three letters
    QString txtCaseType;       ///< District and Municipal Courts: "CV" or "IN"

    // What the reports read
    bool SearchStopped = false; ///< the case was not asked for to its end
    ListBox lboxResponses;      ///< the reply of the tab that was fetched last

    /// The window has gone in the middle of a run, which ends at its next stop point. By itself a
    /// window refuses that, but not when its link is thought to be free.
    bool CloseRequested = false;

    QTimer *TmrSearchOnDemand; ///< asks for the turn of a later run
    QTimer *TmrFlash;          ///< has no interval before the end of a run; stops at its first tick

protected:
    CaseWindow(CaseKind windowKind, QWidget *parent);

    /// Takes the controls that the three windows share, under the same names in each, and starts
    /// the timers: to be called once the controls and the tabs are there.
    template<class Controls>
    void UseControls(const Controls &ui)
    {
        header = ui.lblCaseDetailsHdr;
        courtName = ui.lblCourtName;
        dateFiled = ui.lblDateFiled;
        lblStatus = ui.lblStatus;
        lblWarning = ui.lblWarning;
        tabStrip = ui.TabStrip1;
        frameTabs = ui.frameTabs;
        panel = ui.frameTabs_8;
        printButton = ui.cmdPrintDetails;
        load(ui.cmdStopSearching, ui.cmdCloseDetails, ui.lblHelp);
    }
    void UseCaseTitle(QLabel *label) { caseTitle = label; }
    void UseTab(CaseTab tab, QWidget *frame, FlexGrid *grid);

    /// The tabs that this case can have, once the starter's fields are there; called on the first
    /// tick.
    virtual void CutTabsToCase() = 0;
    /// How a tab's grid is read and shown; the Summary has its own.
    virtual void ShowTab(CaseTab tab, bool incomplete, const QString &request);
    /// The Summary's reply is in lboxResponses: shows it. Throws what goes wrong.
    virtual void ShowSummaryResponse() = 0;
    /// The Summary could not be had for this reason: what the header fields read then.
    virtual void ShowSummaryFailure(const QString &reason) = 0;
    /// The notes that a court put ahead of a tab's table, at most two.
    virtual void ShowNotes(CaseTab tab, const QStringList &notes);

    CaseTabState &TabOf(CaseTab tab) { return tabs.at(static_cast<size_t>(tab)); }
    /// Cuts the strip to these captions, or extends it to them.
    void SetTabs(const QStringList &captions);
    /// Only the Summary is left.
    void RemoveAllTabsButFirst();
    void SetStatusText(const QString &text, bool trouble = false);
    void SetWarning(const QString &text, bool trouble = true);
    void ShowGrid(CaseTab tab, const GridTable &table);
    /// The case is not there: nothing more is asked for, and this is what the window says.
    void EndNotLocated(const QString &status, const QString &captionSuffix);
    /// The request lines of the tabs.
    void BuildTabRequests();

    void BeginTick() override;
    void ProcessSearchRequests() override;
    QString WorkingText() const override;
    void ShowStopped(StopCase stopCase) override;
    QString StopRequest() const override;
    void StopPressed() override;
    bool QueryUnload(UnloadMode mode) override;
    void Unloading() override;
    void showEvent(QShowEvent *event) override;

    bool IsBankruptcy() const;
    CaseKind Kind() const { return kind; }

private:
    /// What the run does at a stop point.
    enum class StopPoint { GoOn, Stop, Close };
    /// How a run ends that was not stopped.
    enum class RunEnd { Normal, InvalidCase, Error, Fatal, NotLocated, Stopped, Closed };
    /// How the exchange of a tab ended.
    struct TabResult
    {
        bool Complete = false;
        QString Reason; ///< when it is not complete
    };

    static constexpr int brokenDown = 911; ///< a value of FatalError
    static constexpr QStringView timedOut =
        u"Search Error! Reason: Timed Out Waiting For Response from Server.";

    void load(QPushButton *cmdStopSearching, QPushButton *cmdCloseDetails, QPushButton *help);
    void connectPanel();
    CaseOfRequest requestFields() const;
    QList<CaseTab> requestOrder() const;
    void showFrame(CaseTab tab);
    bool askOnDemand(CaseTabState &state);
    void printDetails();
    /// Whether the list of documents counts.
    enum class Documents { Too, AsTheyAre };
    void leaveUnretrieved(Documents documents = Documents::Too);
    /// Whether the user, or whoever wants to leave, wants nothing more of this run.
    bool isToEnd() const;
    void offerAll();
    void withdrawIfGone();

    // The first run
    RunEnd runTabs();
    RunEnd runSummary();
    void retrieveSummary();
    void askAgainWithAnswer();
    static RunEnd endOf(StopPoint point);
    RunEnd runTab(CaseTab tab);
    void takeBankruptcyRequest(CaseTab tab);
    void rewriteForArbitration(CaseTab tab);
    StopPoint testStopFlags();
    void endRun(RunEnd end);
    void endNormally();
    void endInvalid();
    void endStopped();
    void endClosed();
    void endInError();
    void showEndStatus();
    void reportEmptyQueue();
    void printIfAsked();
    void startFlash();
    void TmrFlash_Tick();

    // The exchange of a tab
    void retrieveTab(CaseTab tab, const QString &request);
    void doTabSearch(CaseTab tab, const QString &request);
    TabResult readTab(CaseTab tab);
    /// Reads the lines of a reply, each logged with its status, until `take` says that it was the
    /// last. False when the server fell silent. Throws when the link broke.
    static bool readLines(QStringView beforeStatus,
                          const std::function<bool(const QString &line)> &take);
    void sendTabRequest(const QString &request, bool withClientCode);
    void tabFailed(CaseTab tab, const RunTimeError &error);

    // The exchange of the Summary
    void DoSummarySearch(const QString &request);
    struct SummaryRead;
    SummaryRead readSummary(const QString &request);
    bool takeSummaryLine(const QString &line, const QString &request, SummaryRead &read);
    void summaryNotOnFile(const QString &request);
    void takeSummaryError(const QString &line, SummaryRead &read);
    void askArbitration();
    void evaluateSummary(const QString &request, const SummaryRead &read);
    bool stopHasCutSummaryShort() const;
    void showSummary();
    void summaryComplete(const QString &request);
    void summaryInvalid(const QString &request, const QString &reason);
    void summaryIncomplete(const QString &request, const QString &reason);
    void logSummaryFailure(const QString &first, const QString &request, const QString &reason);
    void showFailedSummary(const QString &reason);

    // The later runs
    void SetOnDemandPanel();
    void offerMissing(bool keepTicks);
    void cmdSearchNow_Click();
    void TmrSearchOnDemand_Tick();
    void ProcessOnDemandSearchRequests();
    RunEnd runOnDemandTabs();
    RunEnd runOnDemandTab(CaseTab tab);
    void prepareOnDemand(CaseTab tab);
    std::optional<CaseTab> tabOfBox(int box) const;
    void endOnDemand(RunEnd end);
    void restoreOnDemandButtons();
    void offerNextRun();

    const CaseKind kind;
    std::array<CaseTabState, caseTabCount> tabs;
    QStringList tabCaptions;
    bool CaseInvalid = false;  ///< the court says that it has no such case
    int FatalError = 0;        ///< brokenDown once a tab's exchange broke down
    bool UserQuestion = false; ///< the court asked whether arbitration is meant, and was answered
    bool ArbitrationAnswer = false;
    ArbitrationMode arbitration = ArbitrationMode::NotAsked;
    bool RequestsBuilt = false;
    bool TabsPending = true; ///< until the strip was cut to the case
    bool Archived = false;
    bool NotLocated = false;
    bool onDemand = false;     ///< the run that waits or goes on is a later one
    bool choiceStands = false; ///< a later run waits or goes on: its ticks are the user's
    bool closesUnasked = false;
    bool wasShown = false;
    qint16 flashTicks = 0;

    QLabel *header = nullptr;
    QLabel *courtName = nullptr;
    QLabel *caseTitle = nullptr;
    QLabel *dateFiled = nullptr;
    QLabel *lblStatus = nullptr;
    QLabel *lblWarning = nullptr;
    TabStrip *tabStrip = nullptr;
    QStackedWidget *frameTabs = nullptr;
    OnDemandPanel *panel = nullptr;
    QPushButton *printButton = nullptr;
    JobVoice *voice = nullptr;
};
