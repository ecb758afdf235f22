#pragma once

#include "casedetails/CaseJob.h"
#include "casedetails/CaseTalk.h"
#include "jobs/JobWindow.h"
#include "reports/ReportViewer.h"
#include "reports/dlgPrintMgr.h"

#include <array>

class FlexGrid;
class OnDemandPanel;
class QCheckBox;
class QStackedWidget;
class TabStrip;

/// What a case window has of one of its tabs: what the record says of it, and where it is shown.
struct CaseTabState
{
    const QString &TabRequest;
    const bool &TabNotRetrieved;
    const bool &TabIncomplete;
    const bool &TabDone;

    QWidget *Frame; ///< its page of frameTabs; null when the window has no such tab
    FlexGrid *Grid;
};

/// The window of one case. It shows what is on the sheet of its job, and writes back what the user
/// chose; what is asked for, and when, is the job's business.
///
/// This is what the three case windows share. Their reports are in CasePrinting.cpp.
class CaseWindow : public JobWindow, private CaseTalk
{
    Q_OBJECT
protected:
    CaseJob *const caseJob;

public:
    ~CaseWindow() override;

    /// Takes what the starter hands over.
    void Take(const CaseStart &start) { caseJob->Take(start); }
    /// The case and what has come of it.
    const CaseRecord &Record() const { return caseJob->Record; }

    // Each of these first asks for the tabs that are wanted. A run may go on meanwhile: the report
    // says that it is not complete then.
    bool HasReport() const override { return true; }
    void PrintDirect() override;
    void PrintToFile(const QString &path) override;
    /// Prints what waits in lboxReportsToPrint, and asks for the tabs only of a user who wants
    /// alerts.
    void PrintWaiting();
    /// Whether a print of that kind has not come to its end.
    bool IsPrinting() const { return preview && preview->IsPrinting(); }

    void SetCaseDetailsHdr(const QString &text) { caseJob->Sheet.SetHeading(text); }
    QString lblCaseDetailsHdr() const { return Record().lblCaseDetailsHdr; }
    void SetCourtName(const QString &text) { setHeader(&CaseRecord::lblCourtName, text); }
    QString lblCourtName() const { return Record().lblCourtName; }
    void SetCaseTitle(const QString &text) { caseJob->Sheet.SetTitle(text); }
    QString lblCaseTitle() const { return Record().lblCaseTitle; }
    void SetDateFiled(const QString &text) { setHeader(&CaseRecord::lblDateFiled, text); }
    QString lblDateFiled() const { return Record().lblDateFiled; }

    /// Shows a tab, or the on-demand panel in its place. An incomplete tab asks first whether it
    /// shall be retrieved again. A caption that is no tab's does nothing.
    void ActivateTab(const QString &caption) { caseJob->ActivateTab(caption); }
    /// Whether the strip has a tab with this caption, in capitals or not.
    bool TabExists(const QString &word) const { return Record().TabExists(word); }
    bool TabExists(CaseTab tab) const { return Record().TabExists(tab); }
    /// Whether the word is one of TabCaptions, letter by letter.
    bool IsTabCaption(const QString &word) const { return TabCaptions().contains(word); }
    /// Whether a tab of the strip did not come as it should.
    bool AnyTabIncomplete() const { return Record().AnyTabIncomplete(); }

    /// Makes the target show what the source shows: headers, widths, cells and how the columns are
    /// aligned. A report has grids of its own, which its page can lay out while the user goes on in
    /// the tab.
    static void CopyGrid(const FlexGrid &source, FlexGrid &target);
    /// Does nothing, and is kept for its name: SetGridColsAndNamesAndWidths gives a grid its widths
    /// and headers.
    static void SetColumnWidthsAndInsertHeaderText() {}

    CaseTabState Tab(CaseTab tab) const;
    const QStringList &TabCaptions() const { return Record().TabCaptions; }

    // What the starter hands over, besides the members of every job
    QString &txtCaseNumber;
    QString &txtCountyName;
    QString &lblOrCourtType;
    QString &tboxCaseNumberQueue;
    ListBox &lboxTabReqQueue;
    bool &chkBK;
    bool &chkBKYass;
    bool &chkAutoPrint;
    QString &txtCourtCode;
    QString &txtCaseType;

    // What the reports read
    bool &SearchStopped;
    ListBox &lboxResponses;
    ListBox lboxReportsToPrint;            ///< the titles of what waits for being printed by itself
    std::unique_ptr<ReportViewer> preview; ///< from loading to unloading

    bool &CloseRequested;

    QTimer *const TmrSearchOnDemand;
    QTimer *TmrFlash; ///< has no interval before the end of a run; stops at its first tick

protected:
    /// Takes the job.
    CaseWindow(CaseJob *ownJob, QWidget *parent);

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
        tabNotice = ui.lblTabNotice;
        breakdown = ui.lblBreakdown;
        printButton = ui.cmdPrintDetails;
        gridLinesBox = ui.chkPrintGridLines;
        load(ui.cmdStopSearching, ui.cmdCloseDetails, ui.lblHelp);
    }
    void UseCaseTitle(QLabel *label) { caseTitle = label; }
    void UseTab(CaseTab tab, QWidget *frame, FlexGrid *grid);
    void setHeader(QString CaseRecord::*field, const QString &text)
    {
        caseJob->Sheet.SetHeader(field, text);
    }

    /// Shows the caption and the texts of the header.
    virtual void ShowHeader();
    /// Shows the table of a tab, and what stands ahead of it.
    virtual void ShowTab(CaseTab tab);

    void StopPressed() override;
    bool QueryUnload(UnloadMode mode) override;
    void Unloading() override;
    void showEvent(QShowEvent *event) override;

private:
    struct Place
    {
        QWidget *Frame = nullptr;
        FlexGrid *Grid = nullptr;
    };

    void load(QPushButton *cmdStopSearching, QPushButton *cmdCloseDetails, QPushButton *help);
    void connectPanel();
    void connectJob();
    const Place &placeOf(CaseTab tab) const { return places.at(static_cast<size_t>(tab)); }
    void showWarning();
    void showTabs();
    void showSight();
    void showOffer();
    void showAnswers();
    void toBegin(CaseTab tab);
    void showRows();
    void showMarks(CaseTab tab);
    void tabClicked(const QString &caption);
    void boxToggled(int box, bool on);
    void cmdSearchNow_Click();
    std::optional<QList<CaseTab>> chooseTabs(dlgPrintMgr::Purpose purpose);
    ReportSituation situation() const;
    /// Only while there is a preview.
    Report composed(const QList<CaseTab> &tabs) const;
    void closeUnasked();
    void TmrFlash_Tick();

    bool AskArbitration() override;
    std::optional<bool> AskOnDemand() override;
    void TellEmptyQueue() override;
    void Print() override;

    std::array<Place, caseTabCount> places;
    bool closesUnasked = false;
    bool wasShown = false;
    bool printGridLines = false; ///< chkPrintGridLines is ticked
    qint16 flashTicks = 0;
    QTimer growTimer; ///< runs while rows that have come are not shown yet

    QLabel *header = nullptr;
    QLabel *courtName = nullptr;
    QLabel *caseTitle = nullptr;
    QLabel *dateFiled = nullptr;
    QLabel *lblStatus = nullptr;
    QLabel *lblWarning = nullptr;
    TabStrip *tabStrip = nullptr;
    QStackedWidget *frameTabs = nullptr;
    OnDemandPanel *panel = nullptr;
    QLabel *tabNotice = nullptr;
    QLabel *breakdown = nullptr;
    QPushButton *printButton = nullptr;
    QCheckBox *gridLinesBox = nullptr;
};
