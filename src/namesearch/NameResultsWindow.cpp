#include "namesearch/NameResultsWindow.h"

#include "controls/MsgBox.h"
#include "controls/StatusColour.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "courts/CourtTable.h"
#include "jobs/JobVoice.h"
#include "namesearch/ResultRows.h"
#include "tables/ResultListView.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr JobPace resultsPace{.turn = 1900, .blink = 500, .takenBlink = 900, .workingBlink = 500};

void applyStyle(QLabel *label, StatusStyle style)
{
    if (style != StatusStyle::Unchanged)
        SetStatusStyle(label, style == StatusStyle::NormalBold ? StatusColour::Normal
                                                               : StatusColour::Trouble);
}
} // namespace

NameResultsWindow::NameResultsWindow(ResultsWindow window, QWidget *parent)
    : JobWindow(resultsPace, parent), differences(ResultsWindowRowOf(window))
{
    SortColumnName = FirstSortColumn();
    Global.bUserStoppedSearch = false;
}

void NameResultsWindow::ShowInProgress()
{
    SetSearchStatus(u" Search In Progress. Select Stop Search Button to Cancel Current Search .."_s,
                    StatusStyle::NormalBold);
}

/// A label that is broken into lines needs the more of them the narrower the window is, and the
/// layout does not count that into how low the window may get: its controls would be cut.
bool NameResultsWindow::event(QEvent *event)
{
    const bool handled = JobWindow::event(event);
    const bool changed = event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
    if (changed && layout())
        setMinimumHeight(std::max(0, layout()->totalMinimumHeightForWidth(width())));
    return handled;
}

void NameResultsWindow::load(QPushButton *cmdStopSearching)
{
    voice = new JobVoice(this, lblStatus, listview1);
    ShowInProgress();
    applyStyle(lblStatus, StatusStyle::NormalBold);
    InitListView();
    ShowHeaderIcon(0, Qt::AscendingOrder, true);
    CountRowsOf(listview1);
    // The button is enabled when a search ends.
    connect(printButton, &QPushButton::clicked, this, &NameResultsWindow::PrintDirect);
    StartJob(lblStatus, cmdStopSearching, listview1);
}

void NameResultsWindow::BeginSearching()
{
    Global.bSearchInProgress = false;
    SearchAgain();
}

void NameResultsWindow::SearchAgain()
{
    stoppedByUser = false;
    RestartJob();
    voice->Started();
}

void NameResultsWindow::ShowHeaderIcon(int column, Qt::SortOrder order, bool show)
{
    listview1->ShowHeaderIcon(column, order, show);
}

void NameResultsWindow::SetNameVal(const QString &text)
{
    nameVal->setText(text);
}

QString NameResultsWindow::lblNameVal() const
{
    return nameVal->text();
}

void NameResultsWindow::SetCaseTypeVals(const QString &text)
{
    lblCaseTypeVals->setText(text);
}

void NameResultsWindow::SetTxtCountyList(const QString &text)
{
    countyList->setText(text);
    countyList->setCursorPosition(0);
}

QString NameResultsWindow::txtCountyList() const
{
    return countyList->text();
}

void NameResultsWindow::CountRowsOf(ResultListView *list)
{
    connect(list->List(), &ResultListModel::Flushed, this, [this] {
        if (pendingCount)
            ShowCount(*pendingCount);
    });
}

void NameResultsWindow::AlsoFills(ResultListView *list)
{
    CountRowsOf(list);
    voice->AlsoFills(list);
}

int NameResultsWindow::RowCount() const
{
    return listview1->List()->Count();
}

ListLayout NameResultsWindow::ListColumnsOf(ResultKind kind)
{
    QList<ListColumn> columns;
    for (const ResultColumn &column : ResultColumnsOf(kind)) {
        const bool centred = column.header == centredColumn;
        columns.append(
            {column.header.toString(), column.width, centred ? Qt::AlignHCenter : Qt::AlignLeft});
    }
    return {ResultKindName(kind), columns};
}

void NameResultsWindow::AddParsedRow(const QString &row, ResultKind kind)
{
    const ResultRow parsed = ParseResultRow(row, kind);
    if (!parsed.Cells.isEmpty())
        listview1->List()->AddRow(parsed.Cells);
    if (!parsed.Complete)
        throw RunTimeError::SubscriptOutOfRange();
    CountLater(RowCount());
}

void NameResultsWindow::BeginTick()
{
    if (CriteriaShown)
        return;
    CriteriaShown = true;
    try {
        ShowSearchCriteria(0);
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Cannot show the search criteria: "_s + error.Description());
    }
}

void NameResultsWindow::PrintDirect()
{
    MsgBox(this, u"Printing of results comes with a later version."_s);
}

void NameResultsWindow::PrintToFile(const QString & /*path*/)
{
    PrintDirect();
}

QString NameResultsWindow::WorkingText() const
{
    return differences.working.toString();
}

QString NameResultsWindow::StopRequest() const
{
    return SearchStopOf(lblState);
}

void NameResultsWindow::StopDone()
{
    Global.bUserStoppedSearch = true;
    stoppedByUser = true;
}

void NameResultsWindow::ShowStopped(StopCase stopCase)
{
    if (stopCase == StopCase::AllJobs)
        WriteAppInfo(u"INCOMPLETE EXIT - from Timer1 - Name Search Results."_s);
    ShowStoppedStatus();
    QString text;
    switch (stopCase) {
    case StopCase::AllJobs:
        text = u"Search Stopped By User: "_s + QString::number(RowCount()) + u" Cases Retrieved."_s;
        break;
    case StopCase::Pending:
        text = u"Search Stopped By User. No Results Were Retrieved."_s;
        break;
    case StopCase::Active:
        text = u"Search Stopped By User. Some Results May Not Have Been Retrieved."_s;
        break;
    }
    SetSearchStatus(text, StatusStyle::TroubleBold);
    SetCount({});
    voice->SayState();
}

bool NameResultsWindow::QueryUnload(UnloadMode mode)
{
    // The key of a search that never had its turn stays in the queue: closing is not stopping.
    if (lbl911 == u"T") {
        WriteAppInfo(u"Unconditional Form Close Called. Closing Name Search form."_s);
        return true;
    }
    if (closesUnasked)
        return true;
    return MayClose(mode, u"Are you sure you want to close this form?\r\n\r\nAny data that has not "
                          "been printed or saved will be lost!"_s);
}

void NameResultsWindow::SetStatus(const QString &text, StatusStyle style)
{
    applyStyle(lblStatus, style);
    lblStatus->setText(text);
    voice->SayState();
}

void NameResultsWindow::SetSearchStatus(const QString &text, StatusStyle style)
{
    applyStyle(lblSearchStatus, style);
    lblSearchStatus->setText(text);
}

void NameResultsWindow::SetCount(const QString &text)
{
    pendingCount.reset();
    Label3->setText(text);
}

void NameResultsWindow::ShowCount(int rows)
{
    SetCount(differences.countLabel.toString() + QString::number(rows));
}
