// The life of a case window: its load, its tabs, the ways in which it stops and closes.

#include "casedetails/CaseWindow.h"

#include "casedetails/OnDemandPanel.h"
#include "casedetails/TabGrids.h"
#include "casedetails/frmOnDemand.h"
#include "tables/FlexGrid.h"
#include "jobs/JobVoice.h"
#include "controls/MsgBox.h"
#include "controls/StatusColour.h"
#include "controls/TabStrip.h"
#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "courts/CaseTypes.h"
#include "jobs/TurnTaking.h"
#include "session/SessionEvents.h"

#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr JobPace casePace{.turn = 2000, .blink = 500, .takenBlink = 900, .workingBlink = 700};
constexpr int searchOnDemandInterval = 900;
constexpr double headerScale = 1.2;

/// Behind a list of several cases, "&" is written twice where a label would take it for a mnemonic.
QString withoutDoubledAmpersands(QString text)
{
    return text.replace(u"&&"_s, u"&"_s);
}
} // namespace

CaseWindow::CaseWindow(CaseKind windowKind, QWidget *parent)
    : JobWindow(casePace, parent), TmrSearchOnDemand(new QTimer(this)), TmrFlash(new QTimer(this)),
      kind(windowKind)
{
    TmrSearchOnDemand->setObjectName(u"TmrSearchOnDemand"_s);
    TmrSearchOnDemand->setInterval(searchOnDemandInterval);
    TmrFlash->setObjectName(u"TmrFlash"_s);
    connect(TmrSearchOnDemand, &QTimer::timeout, this, &CaseWindow::TmrSearchOnDemand_Tick);
    connect(TmrFlash, &QTimer::timeout, this, &CaseWindow::TmrFlash_Tick);
    Global.bOnDemandPrompt = true;
    Global.bOnDemandRetry = true;
}

void CaseWindow::UseTab(CaseTab tab, QWidget *frame, FlexGrid *grid)
{
    TabOf(tab).Frame = frame;
    TabOf(tab).Grid = grid;
}

void CaseWindow::load(QPushButton *cmdStopSearching, QPushButton *cmdCloseDetails,
                      QPushButton *help)
{
    voice = new JobVoice(this, lblStatus, TabOf(CaseTab::Summary).Grid);
    SetStatusText(u"Pending .."_s);
    QFont large = header->font();
    large.setBold(true);
    large.setPointSizeF(QFontInfo(large).pointSizeF() * headerScale);
    header->setFont(large);
    // Nothing around a warning that comes and goes may jump.
    QSizePolicy keepsPlace = lblWarning->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    lblWarning->setSizePolicy(keepsPlace);
    connect(cmdCloseDetails, &QPushButton::clicked, this, [this] { Unload(UnloadMode::Code); });
    connect(printButton, &QPushButton::clicked, this, &CaseWindow::printDetails);
    connect(help, &QPushButton::clicked, &SessionEvents::Of(), &SessionEvents::CaseHelpWanted);
    connect(tabStrip, &TabStrip::TabClicked, this, &CaseWindow::ActivateTab);
    connectPanel();
    SetTabs({CaseTabRowOf(CaseTab::Summary).caption.toString()});
    panel->FollowInTabOrder(tabStrip);
    StartJob(lblStatus, cmdStopSearching, tabStrip);
}

void CaseWindow::connectPanel()
{
    panel->HideBoxes();
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (!Tab(tab).Frame)
            continue;
        const CaseTabRow &row = CaseTabRowOf(tab);
        panel->UseBox(row.check, tab == CaseTab::Documents ? u"Documents Available"_s
                                                           : row.caption.toString());
    }
    // One run at a time, and the first has its place in the queue already.
    panel->SetCommandsEnabled(false);
    connect(panel, &OnDemandPanel::SearchNow, this, &CaseWindow::cmdSearchNow_Click);
}

void CaseWindow::SetCaseDetailsHdr(const QString &text)
{
    header->setText(text);
}

QString CaseWindow::lblCaseDetailsHdr() const
{
    return header->text();
}

void CaseWindow::SetCourtName(const QString &text)
{
    courtName->setText(text);
}

QString CaseWindow::lblCourtName() const
{
    return courtName->text();
}

void CaseWindow::SetCaseTitle(const QString &text)
{
    if (caseTitle)
        caseTitle->setText(withoutDoubledAmpersands(text));
}

QString CaseWindow::lblCaseTitle() const
{
    return caseTitle ? caseTitle->text() : QString();
}

void CaseWindow::SetDateFiled(const QString &text)
{
    dateFiled->setText(text);
}

QString CaseWindow::lblDateFiled() const
{
    return dateFiled->text();
}

bool CaseWindow::IsBankruptcy() const
{
    return IsBankruptcyCourt(lblState);
}

void CaseWindow::SetStatusText(const QString &text, bool trouble)
{
    SetStatusStyle(lblStatus, trouble ? StatusColour::Trouble : StatusColour::Normal);
    lblStatus->setText(text);
    voice->SayState();
}

void CaseWindow::SetWarning(const QString &text, bool trouble)
{
    SetStatusStyle(lblWarning, trouble ? StatusColour::Trouble : StatusColour::Normal);
    lblWarning->setText(text);
    lblWarning->setVisible(!text.isEmpty());
}

void CaseWindow::ShowGrid(CaseTab tab, const GridTable &table)
{
    if (Tab(tab).Grid)
        Tab(tab).Grid->Show(table);
}

void CaseWindow::ShowTab(CaseTab tab, bool incomplete, const QString &request)
{
    const QStringList &lines = lboxResponses.Lines();
    const TabView view = tab == CaseTab::Documents
                             ? ShowDocumentsResponse(lines, incomplete, request)
                             : ShowTabResponse(kind, lblState, tab, lines, incomplete, request);
    for (const QString &line : view.LogLines)
        WriteAppInfo(line);
    ShowNotes(tab, view.Notes);
    ShowGrid(tab, view.Grid);
}

void CaseWindow::ShowNotes(CaseTab, const QStringList &) {}

void CaseWindow::SetTabs(const QStringList &captions)
{
    tabCaptions = captions;
    const QString selected = tabStrip->SelectedCaption();
    tabStrip->SetCaptions(captions);
    if (tabStrip->SelectedCaption() == selected)
        return;
    // The tab that was in sight has gone: what the strip has selected instead comes into sight.
    const std::optional<CaseTab> tab = CaseTabOf(tabStrip->SelectedCaption());
    if (tab && Tab(*tab).Frame)
        showFrame(*tab);
}

void CaseWindow::RemoveAllTabsButFirst()
{
    SetTabs(tabCaptions.first(std::min<qsizetype>(1, tabCaptions.size())));
}

bool CaseWindow::TabExists(const QString &word) const
{
    const QStringList captions = tabStrip->Captions();
    return std::any_of(captions.begin(), captions.end(), [&](const QString &caption) {
        return caption.compare(word, Qt::CaseInsensitive) == 0;
    });
}

bool CaseWindow::TabExists(CaseTab tab) const
{
    return TabExists(CaseTabRowOf(tab).caption.toString());
}

bool CaseWindow::IsTabCaption(const QString &word) const
{
    return tabCaptions.contains(word);
}

void CaseWindow::CopyGrid(const FlexGrid &source, FlexGrid &target)
{
    target.Show(source.Table());
    for (int column = 0; column < source.Cols(); ++column)
        target.SetColumnAlignment(column, source.ColumnAlignment(column));
}

bool CaseWindow::AnyTabIncomplete() const
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (Tab(tab).TabIncomplete && TabExists(tab))
            return true;
    }
    return false;
}

/// Asks whether an incomplete tab shall be retrieved again. False when the window went meanwhile.
bool CaseWindow::askOnDemand(CaseTabState &state)
{
    if (!state.TabIncomplete || !Global.bOnDemandPrompt || frmOnDemand::IsLoaded())
        return true;
    frmOnDemand::ShowModal(this);
    state.TabNotRetrieved = Global.bOnDemandRetry;
    return !IsUnloaded();
}

void CaseWindow::ActivateTab(const QString &caption)
{
    // A run goes on behind a window that has gone, and there is nobody to be asked.
    if (IsUnloaded())
        return;
    const RunScope scope(this);
    const std::optional<CaseTab> tab = CaseTabOf(caption);
    if (!tab || !Tab(*tab).Frame)
        return;
    if (!askOnDemand(TabOf(*tab)))
        return;
    showFrame(*tab);
    if (Tab(*tab).TabIncomplete)
        SetWarning(CaseTabRowOf(*tab).review.toString());
    tabStrip->SelectCaption(CaseTabRowOf(*tab).caption.toString());
}

void CaseWindow::showFrame(CaseTab tab)
{
    QWidget *frame = Tab(tab).Frame;
    if (Tab(tab).TabNotRetrieved) {
        frame = panel;
        SetOnDemandPanel();
    }
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
}

CaseOfRequest CaseWindow::requestFields() const
{
    return {.Kind = kind,
            .State = lblState,
            .CaseNumber = txtCaseNumber,
            .CountyName = txtCountyName,
            .OrCourtType = lblOrCourtType,
            .CaseType = txtCaseType,
            .CourtCode = txtCourtCode};
}

QList<CaseTab> CaseWindow::requestOrder() const
{
    if (kind == CaseKind::State)
        return RequestOrder(lblState);
    QList<CaseTab> order;
    for (const QString &caption : DiscisTabs(kind)) {
        if (const std::optional<CaseTab> tab = CaseTabOf(caption); tab && tab != CaseTab::Summary)
            order.append(*tab);
    }
    return order;
}

void CaseWindow::BuildTabRequests()
{
    lboxTabReqQueue.Clear();
    CSetting settings;
    settings.Init(u"options.ini"_s);
    const CaseOfRequest fields = requestFields();
    lboxTabReqQueue.AddItem(CaseTabRequest(fields, CaseTab::Summary));
    const QString section = CaseTabsSection(kind, lblState);
    for (const CaseTab tab : requestOrder()) {
        if (!TabExists(tab))
            continue;
        CaseTabState &state = TabOf(tab);
        state.TabRequest = CaseTabRequest(fields, tab);
        const QString key = CaseTabRowOf(tab).caption.toString();
        state.TabNotRetrieved = settings.GetSettingStr(section, key, u"0"_s) != u"1";
        if (!state.TabNotRetrieved)
            lboxTabReqQueue.AddItem(state.TabRequest);
    }
}

void CaseWindow::BeginTick()
{
    setWindowTitle(u"Case Details ("_s + txtCaseNumber + u')');
    if (IsBankruptcy()) {
        RequestsBuilt = true;
        chkBK = true;
        RemoveAllTabsButFirst();
        return;
    }
    if (TabsPending) {
        CutTabsToCase();
        Archived = lblCaseDetailsHdr().contains(u'*');
        TabsPending = false;
    }
    if (!RequestsBuilt) {
        BuildTabRequests();
        RequestsBuilt = true;
    }
}

QString CaseWindow::WorkingText() const
{
    return u"Searching .."_s;
}

QString CaseWindow::StopRequest() const
{
    return IsBankruptcy() ? u"BKRPT~STOP~"_s : u"\u00A6STOP"_s;
}

void CaseWindow::StopPressed()
{
    // Before the question, and not taken back when it is declined: one press, one question.
    DisableStop();
    StopBlinking();
}

/// Every tab of the strip that has neither been left out nor come offers to be fetched, one in
/// sight at once: an empty grid would be taken for the whole. What has failed has something to be
/// read, and asks when it is clicked.
void CaseWindow::leaveUnretrieved(Documents documents)
{
    const std::optional<CaseTab> inSight = CaseTabOf(tabStrip->SelectedCaption());
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        CaseTabState &state = TabOf(tab);
        if (state.TabNotRetrieved || state.TabDone || !TabExists(tab)
            || (tab == CaseTab::Documents && documents == Documents::AsTheyAre))
            continue;
        state.TabNotRetrieved = true;
        if (tab == inSight && !state.TabIncomplete && !IsUnloaded())
            showFrame(tab);
    }
}

void CaseWindow::ShowStopped(StopCase stopCase)
{
    SearchStopped = true;
    ShowStoppedStatus();
    TmrSearchOnDemand->stop();
    if (stopCase == StopCase::AllJobs) {
        WriteAppInfo(onDemand ? u"INCOMPLETE EXIT - from OnDemandTimer1 - Case Details."_s
                              : u"INCOMPLETE EXIT - from Timer1 - Case Details."_s);
        SetWarning(u"Search Stopped .."_s);
    }
    // A run that is using the link ends in its own time.
    if (!HasTurn)
        offerAll();
    voice->SayState();
}

/// Nothing more comes by itself. Before its first tick the case has neither its tabs nor the lines
/// that they are asked for with.
void CaseWindow::offerAll()
{
    if (!RequestsBuilt)
        BeginTick();
    leaveUnretrieved();
    offerNextRun();
}

/// The run of a window that has gone meanwhile is over.
void CaseWindow::withdrawIfGone()
{
    if (IsUnloaded())
        WithdrawKey(txtMasterKey);
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
    TmrSearchOnDemand->stop();
    TmrFlash->stop();
    // A run keeps its place until its reply has come: the next job would read what is left of it.
    if (HasTurn)
        CloseRequested = true;
    else
        WithdrawKey(txtMasterKey);
}

void CaseWindow::showEvent(QShowEvent *event)
{
    wasShown = true;
    JobWindow::showEvent(event);
}

void CaseWindow::printDetails()
{
    MsgBox(this, u"Printing of case details comes with a later version."_s);
}

void CaseWindow::startFlash()
{
    constexpr int flashInterval = 500;
    TmrFlash->start(flashInterval);
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
