#include "casedetails/CaseWindow.h"

#include "casedetails/CaseAnswers.h"
#include "casedetails/CaseWindows.h"
#include "casedetails/OnDemandPanel.h"
#include "casedetails/frmArbPrompt.h"
#include "casedetails/frmOnDemand.h"
#include "controls/MsgBox.h"
#include "controls/StatusColour.h"
#include "controls/TabStrip.h"
#include "controls/WrappedText.h"
#include "core/GlobalState.h"
#include "session/LoginOffer.h"
#include "session/SessionEvents.h"
#include "tables/FlexGrid.h"

#include <QCheckBox>
#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

namespace {
constexpr double headerScale = 1.2;
/// Rows that come one by one are shown together: each showing costs more than the row.
constexpr int growMilliseconds = 40;

QList<CaseWindow *> &allCaseWindows()
{
    static QList<CaseWindow *> windows;
    return windows;
}
} // namespace

const QList<CaseWindow *> &AllCaseWindows()
{
    return allCaseWindows();
}

CaseWindow::CaseWindow(CaseJob *ownJob, QWidget *parent)
    : JobWindow(ownJob, &ownJob->Record.lblState, &ownJob->Record.ClientAcctgCode, parent),
      caseJob(ownJob), txtCaseNumber(ownJob->Record.txtCaseNumber),
      txtCountyName(ownJob->Record.txtCountyName), lblOrCourtType(ownJob->Record.lblOrCourtType),
      tboxCaseNumberQueue(ownJob->Record.tboxCaseNumberQueue),
      lboxTabReqQueue(ownJob->lboxTabReqQueue), chkBK(ownJob->Record.chkBK),
      chkBKYass(ownJob->Record.chkBKYass), chkAutoPrint(ownJob->Record.chkAutoPrint),
      txtCourtCode(ownJob->Record.txtCourtCode), txtCaseType(ownJob->Record.txtCaseType),
      SearchStopped(ownJob->Record.SearchStopped), lboxResponses(ownJob->lboxResponses),
      CloseRequested(ownJob->CloseRequested), TmrSearchOnDemand(ownJob->TmrSearchOnDemand),
      TmrFlash(new QTimer(this))
{
    allCaseWindows().append(this);
    caseJob->UseTalk(this);
    TmrFlash->setObjectName(u"TmrFlash"_s);
    connect(TmrFlash, &QTimer::timeout, this, &CaseWindow::TmrFlash_Tick);
}

CaseWindow::~CaseWindow()
{
    allCaseWindows().removeOne(this);
    caseJob->UseTalk(nullptr);
}

void CaseWindow::UseTab(CaseTab tab, QWidget *frame, FlexGrid *grid)
{
    places.at(static_cast<size_t>(tab)) = {frame, grid};
}

CaseTabState CaseWindow::Tab(CaseTab tab) const
{
    const CaseTabRecord &record = Record().Tab(tab);
    return {record.TabRequest, record.TabNotRetrieved, record.TabIncomplete,
            record.TabDone,    placeOf(tab).Frame,     placeOf(tab).Grid};
}

void CaseWindow::load(QPushButton *cmdStopSearching, QPushButton *cmdCloseDetails,
                      QPushButton *help)
{
    QFont large = header->font();
    large.setBold(true);
    large.setPointSizeF(QFontInfo(large).pointSizeF() * headerScale);
    header->setFont(large);
    // Nothing around a warning that comes and goes may jump.
    QSizePolicy keepsPlace = lblWarning->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    lblWarning->setSizePolicy(keepsPlace);
    connect(cmdCloseDetails, &QPushButton::clicked, this, [this] { Unload(UnloadMode::Code); });
    connect(printButton, &QPushButton::clicked, this, &CaseWindow::PrintDirect);
    connect(gridLinesBox, &QCheckBox::toggled, this, [this](bool on) { printGridLines = on; });
    preview = MakeReportViewer(this);
    connect(help, &QPushButton::clicked, &SessionEvents::Of(), &SessionEvents::CaseHelpWanted);
    connect(tabStrip, &TabStrip::TabClicked, this, &CaseWindow::tabClicked);
    connectPanel();
    connectJob();
    ShowHeader();
    showTabs();
    showSight();
    showOffer();
    SetStatusStyle(tabNotice, StatusColour::Trouble);
    SetStatusStyle(breakdown, StatusColour::Trouble);
    showAnswers();
    panel->FollowInTabOrder(tabStrip);
    StartJob({.lblStatus = lblStatus,
              .cmdStopSearching = cmdStopSearching,
              .rows = placeOf(CaseTab::Summary).Grid,
              .home = tabStrip});
}

void CaseWindow::connectPanel()
{
    panel->HideBoxes();
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (!Record().Tab(tab).Exists)
            continue;
        const CaseTabRow &row = CaseTabRowOf(tab);
        panel->UseBox(row.check, tab == CaseTab::Documents ? u"Documents Available"_s
                                                           : row.caption.toString());
    }
    connect(panel, &OnDemandPanel::BoxToggled, this, &CaseWindow::boxToggled);
    connect(panel, &OnDemandPanel::SearchNow, this, &CaseWindow::cmdSearchNow_Click);
}

void CaseWindow::connectJob()
{
    const CaseSheet *sheet = &caseJob->Sheet;
    connect(sheet, &CaseSheet::HeaderChanged, this, [this] { ShowHeader(); });
    connect(sheet, &CaseSheet::WarningChanged, this, &CaseWindow::showWarning);
    connect(sheet, &CaseSheet::TabsChanged, this, &CaseWindow::showTabs);
    connect(sheet, &CaseSheet::SightChanged, this, &CaseWindow::showSight);
    connect(sheet, &CaseSheet::TabChanged, this, [this](CaseTab tab) { ShowTab(tab); });
    connect(sheet, &CaseSheet::MarksChanged, this, &CaseWindow::showMarks);
    growTimer.setSingleShot(true);
    growTimer.setInterval(growMilliseconds);
    connect(&growTimer, &QTimer::timeout, this, &CaseWindow::showRows);
    connect(sheet, &CaseSheet::RowsAdded, this, [this] {
        if (!growTimer.isActive())
            growTimer.start();
    });
    connect(sheet, &CaseSheet::RowsComplete, this, &CaseWindow::showRows);
    connect(sheet, &CaseSheet::TabToBegin, this, &CaseWindow::toBegin);
    connect(sheet, &CaseSheet::OfferChanged, this, &CaseWindow::showOffer);
    connect(sheet, &CaseSheet::OfferChanged, this, &CaseWindow::showAnswers);
    connect(sheet, &CaseSheet::AnswersChanged, this, &CaseWindow::showAnswers);
    connect(sheet, &CaseSheet::SightChanged, this, &CaseWindow::showAnswers);
    connect(caseJob, &CaseJob::StatusToBeSeen, lblStatus, &QWidget::show);
    connect(caseJob, &CaseJob::FlashWanted, this, [this] {
        constexpr int flashInterval = 500;
        TmrFlash->start(flashInterval);
    });
    connect(caseJob, &CaseJob::CloseWanted, this, &CaseWindow::closeUnasked);
}

void CaseWindow::ShowHeader()
{
    setWindowTitle(TitleText(Record().Caption));
    header->setText(Record().lblCaseDetailsHdr);
    courtName->setText(Record().lblCourtName);
    dateFiled->setText(Record().lblDateFiled);
    if (caseTitle)
        caseTitle->setText(Record().lblCaseTitle);
}

void CaseWindow::showWarning()
{
    const StatusLine &warning = Record().lblWarning;
    SetStatusStyle(lblWarning, warning.Trouble ? StatusColour::Trouble : StatusColour::Normal);
    lblWarning->setText(warning.Text);
    lblWarning->setVisible(!warning.Text.isEmpty());
}

void CaseWindow::ShowTab(CaseTab tab)
{
    FlexGrid *grid = placeOf(tab).Grid;
    grid->SetColumnAlignment(0, Record().Tab(tab).FirstColumn);
    grid->Show(Record().Tab(tab).Table);
    showMarks(tab);
}

void CaseWindow::showMarks(CaseTab tab)
{
    placeOf(tab).Grid->MarkRows(Record().Tab(tab).New);
}

/// Of the documents: no other table grows under the user's eyes.
void CaseWindow::showRows()
{
    growTimer.stop();
    placeOf(CaseTab::Documents).Grid->Grow(Record().Tab(CaseTab::Documents).Table);
}

void CaseWindow::toBegin(CaseTab tab)
{
    FlexGrid *grid = placeOf(tab).Grid;
    grid->SetColumnAlignment(0, Record().Tab(tab).FirstColumn);
    grid->scrollToTop();
}

void CaseWindow::showTabs()
{
    tabStrip->SetCaptions(TabCaptions());
}

void CaseWindow::showSight()
{
    QWidget *frame = Record().PanelInSight ? panel : placeOf(Record().InSight).Frame;
    // Who has the keyboard in the frame that goes has it in the one that comes, or on the strip
    // when nothing there can take it: never on a button that nobody went to, and never nowhere.
    const bool moves = frameTabs->isAncestorOf(window()->focusWidget());
    frame->setEnabled(true);
    frameTabs->setCurrentWidget(frame);
    if (moves && !frame->isAncestorOf(window()->focusWidget()))
        tabStrip->setFocus(Qt::OtherFocusReason);
    // What is out of sight takes no part: neither the keyboard nor a screen reader finds it.
    for (int i = 0; i < frameTabs->count(); ++i)
        frameTabs->widget(i)->setEnabled(frameTabs->widget(i) == frame);
    tabStrip->SelectCaption(Record().SelectedTab);
}

void CaseWindow::showOffer()
{
    for (int i = 0; i < caseTabCount; ++i) {
        const CaseTabRecord &tab = Record().Tab(static_cast<CaseTab>(i));
        if (tab.Exists)
            panel->Offer(CaseTabRowOf(static_cast<CaseTab>(i)).check, tab.Offered, tab.Chosen);
    }
    panel->SetCommandsEnabled(Record().CanSearchNow);
    if (Record().CanPrint)
        printButton->setEnabled(true);
    else
        TurnOff(printButton);
}

/// What has become of a tab is said where the user looks for it: beside its box on the panel, and
/// above its table when that may not be all.
void CaseWindow::showAnswers()
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        const CaseTabRecord &ofTab = Record().Tab(tab);
        const bool missing = Record().TabExists(tab) && !ofTab.TabDone;
        if (ofTab.Exists)
            panel->Say(CaseTabRowOf(tab).check,
                       missing ? AnswerWords(ofTab.Answer, ofTab.Reason) : QString());
    }
    const auto show = [](QLabel *label, const QString &text) {
        label->setText(text);
        label->setVisible(!text.isEmpty());
    };
    show(tabNotice, NoticeOfTab(Record()));
    show(breakdown, NoticeOfBreakdown(Record()));
}

void CaseWindow::tabClicked(const QString &caption)
{
    const RunScope scope(this);
    caseJob->Sheet.Select(caption);
    caseJob->ActivateTab(caption);
}

void CaseWindow::boxToggled(int box, bool on)
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (Record().Tab(tab).Exists && CaseTabRowOf(tab).check == box)
            caseJob->Sheet.Choose(tab, on);
    }
}

void CaseWindow::cmdSearchNow_Click()
{
    const RunScope scope(this);
    Global.bStopRequested = false;
    if (Global.bLoggedIn) {
        // The button that was pressed is off from here; the tabs are what one turns to next.
        if (panel->isAncestorOf(window()->focusWidget()))
            tabStrip->setFocus(Qt::OtherFocusReason);
        caseJob->SearchNow();
    } else if (OfferLogin(this)) {
        caseJob->Sheet.SetWarning({});
        ShowLoginModally();
    }
}

void CaseWindow::StopPressed()
{
    // Before the question, and not taken back when it is declined: one press, one question.
    DisableStop();
    StopBlinking();
}

void CaseWindow::CopyGrid(const FlexGrid &source, FlexGrid &target)
{
    target.Show(source.Table());
    for (int column = 0; column < source.Cols(); ++column)
        target.SetColumnAlignment(column, source.ColumnAlignment(column));
}

bool CaseWindow::AskArbitration()
{
    const RunScope scope(this);
    frmArbPrompt::ShowModal(this);
    return CaseAnswers.ArbitrationChosen;
}

std::optional<bool> CaseWindow::AskOnDemand()
{
    if (frmOnDemand::IsLoaded())
        return std::nullopt;
    const RunScope scope(this);
    frmOnDemand::ShowModal(this);
    return CaseAnswers.bOnDemandRetry;
}

void CaseWindow::TellEmptyQueue()
{
    const RunScope scope(this);
    MsgBox(this,
           u"No Search Requests For Case Details Can Be Located! This Form will be closed when you "
           "select OK. The Request Queue Appears to be Empty."_s,
           u"Search Queue Empty .."_s, MsgButtons::Ok, MsgIcon::Exclamation);
}

void CaseWindow::closeUnasked()
{
    closesUnasked = true;
    Unload();
}

bool CaseWindow::QueryUnload(UnloadMode mode)
{
    // A window that never came on the screen has nothing that the user could lose.
    return closesUnasked || !wasShown
           || MayClose(mode, u"Are you sure you want to close this form?\r\nAny data that has not "
                             "been printed or saved will be lost!"_s);
}

void CaseWindow::Unloading()
{
    JobWindow::Unloading();
    TmrFlash->stop();
    preview.reset();
}

void CaseWindow::showEvent(QShowEvent *event)
{
    wasShown = true;
    JobWindow::showEvent(event);
}

/// The count is compared with a limit that is never set, so the window does not flash: somebody who
/// works in another window gets a notice on the desktop instead.
void CaseWindow::TmrFlash_Tick()
{
    constexpr qint16 flashLimit = 0;
    ++flashTicks;
    if (flashTicks >= flashLimit)
        TmrFlash->stop();
}
