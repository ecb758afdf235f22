#include "namesearch/frmNameSearchResults.h"

#include "controls/MsgBox.h"
#include "controls/StatusColour.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "jobs/TurnTaking.h"
#include "link/Comm.h"
#include "namesearch/Replies.h"
#include "namesearch/ResultRows.h"
#include "namesearch/SearchCriteria.h"
#include "ui_frmNameSearchResults.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int turnMilliseconds = 1900;
constexpr int searchingBlinkMilliseconds = 500;
constexpr int pendingBlinkMilliseconds = 900;

enum ResultButton { CaseDetails, CloseResults, PrintResults, CreateSearch, GetNext, Email, Save };

void applyStyle(QLabel *label, StatusStyle style)
{
    if (style != StatusStyle::Unchanged)
        SetStatusStyle(
            label, style == StatusStyle::NormalBold ? StatusColour::Normal : StatusColour::Trouble,
            true);
}
} // namespace

frmNameSearchResults::frmNameSearchResults(const QString &state, bool indexSearch, bool bankruptcy,
                                           QWidget *parent)
    : FormWindow(parent), lblState(state), chkIndexSearch(indexSearch), Timer1(new QTimer(this)),
      tmrBlink(new QTimer(this)), ui(std::make_unique<Ui::frmNameSearchResults>()),
      kind(ResultKindOf(state, indexSearch, bankruptcy))
{
    ui->setupUi(this);
    for (size_t i = 0; i < cmdSearchResults.size(); ++i)
        cmdSearchResults[i] = findChild<QPushButton *>(u"cmdSearchResults_"_s + QString::number(i));
    // Two buttons of the first design stand beyond the window's edge and do nothing; Get Next
    // comes into sight only when a page has a next one.
    cmdSearchResults[CloseResults]->hide();
    cmdSearchResults[CreateSearch]->hide();
    showPageButton(false);
    setSearchStatus(u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s,
                    StatusStyle::NormalBold);
    applyStyle(ui->lblStatus, StatusStyle::NormalBold);
    QSizePolicy keepsPlace = ui->lblStatus->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    ui->lblStatus->setSizePolicy(keepsPlace);
    InitListView();
    ShowHeaderIcon(0, Qt::AscendingOrder, true);
    SortColumnName = u"Participant Name"_s;
    Global.bUserStoppedSearch = false;

    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setInterval(turnMilliseconds);
    tmrBlink->setObjectName(u"tmrBlink"_s);
    tmrBlink->setInterval(searchingBlinkMilliseconds);
    connect(Timer1, &QTimer::timeout, this, &frmNameSearchResults::Timer1_Tick);
    connect(tmrBlink, &QTimer::timeout, this, &frmNameSearchResults::tmrBlink_Tick);
    connect(ui->cmdStopSearching, &QPushButton::clicked, this,
            &frmNameSearchResults::cmdStopSearching_Click);
    // The button is enabled when a search ends; the reports it opens come with a later version.
    connect(cmdSearchResults[PrintResults], &QPushButton::clicked, this,
            [this] { MsgBox(this, u"Printing of results comes with a later version."_s); });
    connect(ui->listview1->List(), &ResultListModel::Flushed, this, [this] {
        if (countPending)
            showCount(RowCount());
    });
    Timer1->start();
    tmrBlink->start();
}

frmNameSearchResults::~frmNameSearchResults() = default;

void frmNameSearchResults::InitListView()
{
    chkBK = kind == ResultKind::Bankruptcy;
    QList<ListColumn> columns;
    for (const ResultColumn &column : ResultColumnsOf(kind)) {
        const bool centred = column.header == centredColumn;
        columns.append(
            {column.header.toString(), column.width, centred ? Qt::AlignHCenter : Qt::AlignLeft});
    }
    ui->listview1->SetColumns(columns);
}

void frmNameSearchResults::ShowHeaderIcon(int column, Qt::SortOrder order, bool show)
{
    ui->listview1->ShowHeaderIcon(column, order, show);
}

void frmNameSearchResults::BeginSearching()
{
    Global.bSearchInProgress = false;
    EnqueueKey(txtMasterKey);
    ui->cmdStopSearching->setEnabled(true);
    blinking = true;
    Timer1->start();
    tmrBlink->start();
}

void frmNameSearchResults::SetTxtCountyList(const QString &text)
{
    ui->txtCountyList->setText(text);
    ui->txtCountyList->setCursorPosition(0);
}

QString frmNameSearchResults::txtCountyList() const
{
    return ui->txtCountyList->text();
}

int frmNameSearchResults::RowCount() const
{
    return ui->listview1->List()->Count();
}

void frmNameSearchResults::AddResultRow(const QString &row)
{
    const ResultRow parsed = ParseResultRow(row, kind);
    if (!parsed.Cells.isEmpty())
        ui->listview1->List()->AddRow(parsed.Cells);
    if (!parsed.Complete)
        throw RunTimeError::SubscriptOutOfRange();
    if (lblState == u"ID") {
        ui->listview1->SetColumnTwips(1, idahoWideColumn2);
        ui->listview1->SetColumnTwips(4, idahoWideColumn5);
    }
    countPending = true;
}

void frmNameSearchResults::ShowSearchCriteria(int lineIndex)
{
    const SearchCriteria criteria = SuperiorCriteria(lboxQueue.List(lineIndex));
    ui->lblNameVal->setText(criteria.Name);
    ui->lblCaseTypeVals->setText(criteria.CaseTypes);
    setWindowTitle(criteria.Caption);
}

void frmNameSearchResults::Timer1_Tick()
{
    const RunScope scope(this);
    Timer1->stop();
    if (!CriteriaShown) {
        CriteriaShown = true;
        try {
            ShowSearchCriteria(0);
        } catch (const RunTimeError &error) {
            WriteAppInfo(u"Cannot show the search criteria: "_s + error.Description());
        }
    }
    switch (AskForTurn(txtMasterKey)) {
    case Turn::Stopped:
        WriteAppInfo(u"INCOMPLETE EXIT - from Timer1 - Name Search Results."_s);
        showStopped(u"Search Stopped By User: "_s + QString::number(RowCount())
                    + u" Cases Retrieved."_s);
        WithdrawKey(txtMasterKey);
        return;
    case Turn::Taken:
        Timer1->start();
        tmrBlink->setInterval(pendingBlinkMilliseconds);
        return;
    case Turn::Mine:
        Global.bSearchInProgress = true;
        ActiveSearcher = true;
        ui->lblStatus->setText(u"Searching .."_s);
        tmrBlink->setInterval(searchingBlinkMilliseconds);
        if (blinking)
            tmrBlink->start();
        ProcessSearchRequests();
        Global.bSearchInProgress = false;
        ActiveSearcher = false;
        return;
    case Turn::NotYet:
        Timer1->start();
        return;
    }
}

void frmNameSearchResults::tmrBlink_Tick()
{
    const RunScope scope(this);
    tmrBlink->stop();
    Yield();
    // The yield may have run the whole search: blinking is over then, and the text stays on.
    if (!blinking || IsUnloaded())
        return;
    BlinkOn = !BlinkOn;
    ui->lblStatus->setVisible(BlinkOn);
    tmrBlink->start();
}

void frmNameSearchResults::stopBlinking()
{
    blinking = false;
    tmrBlink->stop();
    if (!IsUnloaded())
        ui->lblStatus->show();
}

void frmNameSearchResults::cmdStopSearching_Click()
{
    const RunScope scope(this);
    if (Global.bShowAlerts
        && MsgBox(this, u"Stop This Search?"_s, u"Stop Search Verification"_s, MsgButtons::YesNo,
                  MsgIcon::Question)
               != MsgAnswer::Yes)
        return;
    // It may have ended while the question was open.
    if (!ui->cmdStopSearching->isEnabled())
        return;
    StopRequested = true;
    bool stopped = false;
    if (ui->lblStatus->text().trimmed().contains(u"Pending", Qt::CaseInsensitive)) {
        stopped = StopPendingSearch();
        if (!stopped) {
            WriteAppInfo(u"Cannot Stop Pending Search"_s);
            stopped = StopActiveSearch();
        }
    } else {
        stopped = StopActiveSearch();
    }
    if (!stopped)
        WriteAppInfo(u"Cannot Stop Active Search"_s);
    Global.bSearchInProgress = false;
    Global.bUserStoppedSearch = true;
}

bool frmNameSearchResults::StopPendingSearch()
{
    if (ui->lblStatus->text() != u"Pending ..")
        return false;
    showStopped(u"Search Stopped By User. No Results Were Retrieved."_s);
    WithdrawKey(txtMasterKey);
    return true;
}

bool frmNameSearchResults::StopActiveSearch()
{
    showStopped(u"Search Stopped By User. Some Results May Not Have Been Retrieved."_s);
    StopCurrentSearch();
    return true;
}

void frmNameSearchResults::showStopped(const QString &searchStatus)
{
    ui->cmdStopSearching->setEnabled(false);
    Timer1->stop();
    stopBlinking();
    setStatus(u"Search Stopped By User .. "_s, StatusStyle::TroubleBold);
    setSearchStatus(searchStatus, StatusStyle::TroubleBold);
    countPending = false;
    ui->Label3->clear();
}

void frmNameSearchResults::StopCurrentSearch()
{
    QString error;
    try {
        if (SendReq(StopRequestOf(lblState)) == SendStatus::Sent)
            return;
    } catch (const RunTimeError &raised) {
        error = raised.Description();
    }
    ReleaseTurn();
    WriteAppInfo(u"Exiting Via StopCurrentSearch in PROCERR. Error: "_s + error);
}

bool frmNameSearchResults::QueryUnload(UnloadMode mode)
{
    if (lbl911 == u"T") {
        WriteAppInfo(u"Unconditional Form Close Called. Closing Name Search form."_s);
        return true;
    }
    if (mode != UnloadMode::ControlMenu && mode != UnloadMode::Code)
        return true;
    if (Global.bSearchInProgress && ActiveSearcher) {
        MsgBox(this, u"This form cannot be closed until the current search completes."_s,
               u"Stop Current Search .."_s);
        return false;
    }
    return !Global.bShowAlerts
           || MsgBox(this,
                     u"Are you sure you want to close this form?\r\n\r\nAny data that has not been "
                     "printed or saved will be lost!"_s,
                     u"Close Search Form .."_s, MsgButtons::YesNo, MsgIcon::Question)
                  == MsgAnswer::Yes;
}

void frmNameSearchResults::Unloading()
{
    // The key stays in the queue, if the search never had its turn: closing is not stopping.
    Timer1->stop();
    stopBlinking();
}

void frmNameSearchResults::setStatus(const QString &text, StatusStyle style)
{
    applyStyle(ui->lblStatus, style);
    ui->lblStatus->setText(text);
}

void frmNameSearchResults::setSearchStatus(const QString &text, StatusStyle style)
{
    applyStyle(ui->lblSearchStatus, style);
    ui->lblSearchStatus->setText(text);
}

void frmNameSearchResults::showCount(int rows)
{
    countPending = false;
    ui->Label3->setText(u"Retrieved: "_s + QString::number(rows));
}

void frmNameSearchResults::showPageButton(bool nextPage)
{
    cmdSearchResults[GetNext]->setVisible(nextPage);
    cmdSearchResults[Save]->setVisible(!nextPage);
}
